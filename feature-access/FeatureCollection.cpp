// The features through which a camera gives access to its files.
#include "FeatureCollection.h"

#include "Exception.h"
#include "FeatureHelperException.h"
#include "ZltApi/Camera.h"

#include <boost/format.hpp>

#include <algorithm>

namespace KTR::FeatureHelper::FileAccess
{

namespace
{

void checkArguments(const ZltApi::CameraPtr& camera, ZltFeatureDataType type)
{
    if (!camera)
    {
        throw System::Exception("No camera passed.", true);
    }
    if (type == ZltFeatureDataUnknown)
    {
        throw System::Exception("Invalid data type passed.", true);
    }
}

} // namespace

const std::array<FileAccess::FeatureCollection::Description, FileAccess::FeatureCollection::FeatureCount>
    FileAccess::FeatureCollection::Descriptions{{
        {"FileSelector", ZltFeatureDataEnumeration, false},
        {"FileOperationSelector", ZltFeatureDataEnumeration, false},
        {"FileOperationExecute", ZltFeatureDataCommand, false},
        {"FileOpenMode", ZltFeatureDataEnumeration, false},
        {"FileAccessBuffer", ZltFeatureDataRaw, false},
        {"FileAccessOffset", ZltFeatureDataInteger, false},
        {"FileAccessLength", ZltFeatureDataInteger, false},
        {"FileOperationStatus", ZltFeatureDataEnumeration, false},
        {"FileOperationResult", ZltFeatureDataInteger, false},
        {"FileSize", ZltFeatureDataInteger, false},
        {"FileProcessStatus", ZltFeatureDataEnumeration, true},
        {"FileStatus", ZltFeatureDataEnumeration, true},
    }};

FileAccess::FeatureCollection::FeatureCollection(const ZltApi::CameraPtr& camera) : m_camera(camera)
{
    std::transform(Descriptions.begin(), Descriptions.end(), m_features.begin(),
                   [&](const Description& feature)
                   { return GetFeature(m_camera, feature.name, feature.type, feature.optional); });
}

ZltApi::FeaturePtr FileAccess::FeatureCollection::GetFeature(const ZltApi::CameraPtr& camera, const std::string& name,
                                                             ZltFeatureDataType type, bool optional)
{
    checkArguments(camera, type);

    ZltApi::FeaturePtr feature;
    ZltErrorType result = camera->GetFeatureByName(name.c_str(), feature);
    if (result != ZltErrorSuccess)
    {
        if (optional)
        {
            return {};
        }
        throw Exception(str(boost::format("Could not get feature \"%1%\".") % name), result);
    }
    if (!feature)
    {
        if (optional)
        {
            return {};
        }
        throw System::Exception(str(boost::format("Could not access feature \"%1%\".") % name), true);
    }

    ZltFeatureDataType actualType = ZltFeatureDataUnknown;
    result = feature->GetDataType(actualType);
    if (result != ZltErrorSuccess)
    {
        throw Exception(str(boost::format("Could not get data type of feature \"%1%\".") % name), result);
    }
    if (actualType != type)
    {
        throw System::Exception(str(boost::format("Data type of feature \"%1%\" is unexpected.") % name), true);
    }
    return feature;
}

bool FileAccess::FeatureCollection::CheckFeature(const ZltApi::CameraPtr& camera, const std::string& name,
                                                 ZltFeatureDataType type, bool optional)
{
    checkArguments(camera, type);

    ZltApi::FeaturePtr feature;
    if (camera->GetFeatureByName(name.c_str(), feature) != ZltErrorSuccess || !feature)
    {
        return optional;
    }
    ZltFeatureDataType actualType = ZltFeatureDataUnknown;
    return feature->GetDataType(actualType) == ZltErrorSuccess && actualType == type;
}

bool FileAccess::FeatureCollection::IsCompatible(const ZltApi::CameraPtr& camera)
{
    return std::all_of(Descriptions.begin(), Descriptions.end(),
                       [&](const Description& feature)
                       { return feature.optional || CheckFeature(camera, feature.name, feature.type, false); });
}

} // namespace KTR::FeatureHelper::FileAccess
