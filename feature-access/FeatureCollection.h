// The features through which a camera gives access to its files.
#pragma once

#include "FileAccess.h"
#include "Object.h"
#include "ZltApi/Types.h"

#include <array>
#include <cstddef>
#include <string>

namespace KTR::FeatureHelper::FileAccess
{

class FileAccess::FeatureCollection : public virtual System::Object
{
public:
    // Throws as GetFeature does.
    explicit FeatureCollection(const ZltApi::CameraPtr& camera);

    const ZltApi::CameraPtr& GetCamera() const { return m_camera; }

    const ZltApi::FeaturePtr& GetFileSelector() const { return m_features[FileSelector]; }
    const ZltApi::FeaturePtr& GetFileOperationSelector() const { return m_features[FileOperationSelector]; }
    const ZltApi::FeaturePtr& GetFileOperationExecute() const { return m_features[FileOperationExecute]; }
    const ZltApi::FeaturePtr& GetFileOpenMode() const { return m_features[FileOpenMode]; }
    const ZltApi::FeaturePtr& GetFileAccessBuffer() const { return m_features[FileAccessBuffer]; }
    const ZltApi::FeaturePtr& GetFileAccessOffset() const { return m_features[FileAccessOffset]; }
    const ZltApi::FeaturePtr& GetFileAccessLength() const { return m_features[FileAccessLength]; }
    const ZltApi::FeaturePtr& GetFileOperationStatus() const { return m_features[FileOperationStatus]; }
    const ZltApi::FeaturePtr& GetFileOperationResult() const { return m_features[FileOperationResult]; }
    const ZltApi::FeaturePtr& GetFileSize() const { return m_features[FileSize]; }
    // These two may be empty.
    const ZltApi::FeaturePtr& GetFileProcessStatus() const { return m_features[FileProcessStatus]; }
    const ZltApi::FeaturePtr& GetFileStatus() const { return m_features[FileStatus]; }

    // Returns a feature of the given type. An optional one that the camera lacks is an empty pointer; one of another
    // type is a failure all the same.
    static ZltApi::FeaturePtr GetFeature(const ZltApi::CameraPtr& camera, const std::string& name,
                                         ZltFeatureDataType type, bool optional);
    // Whether GetFeature would succeed. Throws only for an empty camera or a type of 0.
    static bool CheckFeature(const ZltApi::CameraPtr& camera, const std::string& name, ZltFeatureDataType type,
                             bool optional);
    // Whether the camera has all necessary features.
    static bool IsCompatible(const ZltApi::CameraPtr& camera);

private:
    // In the order in which they are fetched.
    enum Index : std::size_t
    {
        FileSelector,
        FileOperationSelector,
        FileOperationExecute,
        FileOpenMode,
        FileAccessBuffer,
        FileAccessOffset,
        FileAccessLength,
        FileOperationStatus,
        FileOperationResult,
        FileSize,
        FileProcessStatus,
        FileStatus,
        FeatureCount
    };

    struct Description
    {
        const char* name;
        ZltFeatureDataType type;
        bool optional;
    };
    static const std::array<Description, FeatureCount> Descriptions;

    ZltApi::CameraPtr m_camera;
    std::array<ZltApi::FeaturePtr, FeatureCount> m_features;
};

} // namespace KTR::FeatureHelper::FileAccess
