// The files of one camera, reached through its file access features.
#pragma once

#include "File.h"
#include "Object.h"
#include "ZltApi/Types.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <map>
#include <string>
#include <vector>

namespace KTR::FeatureHelper::FileAccess
{

// Hands out one File object for each name, as long as one lives. The files may outlive this object.
class FileAccess : public virtual System::Object
{
public:
    class FeatureCollection;
    class FileImpl;

    // Fetches the features from an open camera; throws if a necessary one is missing or of another type.
    explicit FileAccess(const ZltApi::CameraPtr& camera);

    ZltApi::CameraPtr GetCamera() const;

    // The files that are available now, in the camera's order.
    std::vector<boost::shared_ptr<File>> GetFiles();
    // A file by name, whether available now or not; empty when the camera has none of that name.
    boost::shared_ptr<File> GetFile(const std::string& name);

    // Whether the camera has all necessary features.
    static bool IsCompatible(const ZltApi::CameraPtr& camera);

private:
    boost::shared_ptr<File> accessFile(const std::string& name);

    boost::shared_ptr<FeatureCollection> m_features;
    std::map<std::string, boost::weak_ptr<File>> m_files;
};

} // namespace KTR::FeatureHelper::FileAccess
