#include "CameraSession.h"

#include "DpcAdapterManager.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "Exception.h"
#include "ZltCamera.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace CommandLine
{

namespace
{

// A camera takes a few seconds to restart; the slowest ones renew their network address first.
constexpr auto RestartTimeout = std::chrono::seconds(60);
constexpr const char* FlashAdapter = "flash";
constexpr auto RestartPollInterval = std::chrono::milliseconds(50);

ZltApi::CameraPtr FindOrNull(ApiController& api, const std::string& id)
{
    for (const ZltApi::CameraPtr& camera : api.GetCameraList())
    {
        std::string cameraId;
        if (camera->GetID(cameraId) == ZltErrorSuccess && cameraId == id)
        {
            return camera;
        }
    }
    return nullptr;
}

} // namespace

ApiSession::ApiSession()
{
    const ZltErrorType started = m_api.StartUp();
    if (started != ZltErrorSuccess && started != ZltErrorNoTransportLayer)
    {
        throw KTR::System::Exception(
            "The camera API could not be started: " + ApiController::ErrorCodeToMessage(started), true);
    }
}

ApiSession::~ApiSession()
{
    m_api.ShutDown();
}

ZltApi::CameraPtr ApiSession::Find(const std::string& id)
{
    ZltApi::CameraPtr camera = FindOrNull(m_api, id);
    if (!camera)
    {
        throw KTR::System::Exception("There is no camera with the ID \"" + id + "\".", true);
    }
    return camera;
}

CameraSession::CameraSession(const std::string& id, std::string adapter)
    : m_id(id),
      m_adapter(std::move(adapter)),
      m_camera(m_session.Find(id))
{
    Open();
}

CameraSession::~CameraSession()
{
    m_session.Api().CloseCamera();
}

void CameraSession::Open()
{
    const ZltErrorType opened = m_session.Api().OpenCamera(m_camera);
    if (opened == ZltErrorInvalidAccess)
    {
        throw KTR::System::Exception("Camera is in use by another application: " + m_id, true);
    }
    if (opened != ZltErrorSuccess)
    {
        throw KTR::System::Exception(
            "Camera " + m_id + " could not be opened: " + ApiController::ErrorCodeToMessage(opened), true);
    }
}

boost::shared_ptr<KTR::DPC::CameraAbstraction> CameraSession::Abstraction() const
{
    return boost::make_shared<KTR::DPC::ZltCamera>(m_camera);
}

boost::shared_ptr<KTR::DPC::DpcAdapter> CameraSession::Adapter() const
{
    const boost::shared_ptr<KTR::DPC::CameraAbstraction> camera = Abstraction();
    if (m_adapter == FlashAdapter)
    {
        return boost::make_shared<KTR::DPC::DpcAdapterQuorsalinWithPython>(camera);
    }
    boost::shared_ptr<KTR::DPC::DpcAdapter> adapter;
    if (KTR::DPC::DpcAdapterManager::IsCompatible(camera))
    {
        adapter = KTR::DPC::DpcAdapterManager::GetCompatibleDpcAdapter(camera);
    }
    if (!adapter)
    {
        throw KTR::System::Exception("Camera or DPC is not supported", true);
    }
    return adapter;
}

void CameraSession::Restart()
{
    ApiController& api = m_session.Api();
    const boost::shared_ptr<KTR::DPC::CameraAbstraction> camera = Abstraction();
    if (!HasFeature(*camera, "DeviceReset"))
    {
        throw KTR::System::Exception("Cannot reset camera: DeviceReset feature not available!", true);
    }
    camera->RunFeatureCommand("DeviceReset");
    api.CloseCamera();

    const auto deadline = std::chrono::steady_clock::now() + RestartTimeout;
    bool hasLeft = false;
    while (std::chrono::steady_clock::now() < deadline)
    {
        const ZltApi::CameraPtr present = FindOrNull(api, m_id);
        hasLeft = hasLeft || !present || present != m_camera;
        if (hasLeft && present)
        {
            m_camera = present;
            Open();
            return;
        }
        std::this_thread::sleep_for(RestartPollInterval);
    }
    throw KTR::System::Exception("Camera " + m_id + (hasLeft ? " did not come back" : " did not leave") +
                                     " within a minute of its restart.",
                                 true);
}

std::vector<std::string> AdapterNames()
{
    return {FlashAdapter};
}

boost::shared_ptr<KTR::DPC::CorrectionSet> FindSet(const std::vector<boost::shared_ptr<KTR::DPC::CorrectionSet>>& sets,
                                                   const std::string& name)
{
    std::string names;
    for (const boost::shared_ptr<KTR::DPC::CorrectionSet>& set : sets)
    {
        if (set->getName() == name)
        {
            return set;
        }
        names += (names.empty() ? "" : ", ") + set->getName();
    }
    throw KTR::System::Exception("The camera has no correction set \"" + name + "\", only: " + names + ".", true);
}

bool HasFeature(KTR::DPC::CameraAbstraction& camera, const std::string& name)
{
    const std::vector<std::string> features = camera.GetAvailableFeatures();
    return std::find(features.begin(), features.end(), name) != features.end();
}

std::string FamilyName(KTR::DPC::CameraAbstraction& camera)
{
    try
    {
        return HasFeature(camera, "DeviceFamilyName") ? camera.GetFeatureStringValue("DeviceFamilyName")
                                                      : std::string();
    }
    catch (const KTR::System::Exception&)
    {
        return {};
    }
}

} // namespace CommandLine
