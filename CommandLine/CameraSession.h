// One run of the camera API, and one open camera in it.
#pragma once

#include "ApiController.h"
#include "CameraAbstraction.h"
#include "CorrectionSet.h"
#include "DpcAdapter.h"

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace CommandLine
{

// The camera API from construction to destruction. Without any provider there are no cameras, which is no failure.
class ApiSession
{
public:
    ApiSession();
    ~ApiSession();
    ApiSession(const ApiSession&) = delete;
    ApiSession& operator=(const ApiSession&) = delete;

    ApiController& Api() { return m_api; }

    // Throws KTR::System::Exception when there is no camera of that ID.
    ZltApi::CameraPtr Find(const std::string& id);

private:
    ApiController m_api;
};

// An open camera. All operations throw KTR::System::Exception; main thread only.
class CameraSession
{
public:
    // The adapter is one of AdapterNames, or empty: then the camera's own names choose it.
    explicit CameraSession(const std::string& id, std::string adapter = {});
    ~CameraSession();
    CameraSession(const CameraSession&) = delete;
    CameraSession& operator=(const CameraSession&) = delete;

    ApiController& Api() { return m_session.Api(); }
    const ZltApi::CameraPtr& Camera() const { return m_camera; }

    boost::shared_ptr<KTR::DPC::CameraAbstraction> Abstraction() const;
    // A new adapter for the camera's family.
    boost::shared_ptr<KTR::DPC::DpcAdapter> Adapter() const;

    // Restarts the camera, waits until it has left and come back, and opens it again.
    void Restart();

private:
    void Open();

    std::string m_id;
    std::string m_adapter;
    ApiSession m_session;
    ZltApi::CameraPtr m_camera;
};

// Families that no name of a camera chooses.
std::vector<std::string> AdapterNames();

// The adapter's set of that name. Throws KTR::System::Exception when there is none.
boost::shared_ptr<KTR::DPC::CorrectionSet> FindSet(const std::vector<boost::shared_ptr<KTR::DPC::CorrectionSet>>& sets,
                                                   const std::string& name);

// Whether the camera has a feature of that name.
bool HasFeature(KTR::DPC::CameraAbstraction& camera, const std::string& name);

// "DeviceFamilyName", or an empty text where the camera has none.
std::string FamilyName(KTR::DPC::CameraAbstraction& camera);

} // namespace CommandLine
