// Reading and writing a camera's features by name, whatever number type they have.
#include "CameraFeatures.h"

#include <string>
#include <vector>

namespace CameraFeatures
{

using ZltApi::CameraPtr;
using ZltApi::Feature;
using ZltApi::FeaturePtr;

FeaturePtr Find(const CameraPtr& camera, std::initializer_list<const char*> names)
{
    for (const char* name : names)
    {
        FeaturePtr feature;
        if (camera && camera->GetFeatureByName(name, feature) == ZltErrorSuccess && feature)
        {
            return feature;
        }
    }
    return nullptr;
}

FeaturePtr Find(const CameraPtr& camera, const char* name)
{
    return Find(camera, {name});
}

FeaturePtr FindExposure(const CameraPtr& camera)
{
    return Find(camera, {"ExposureTime", "ExposureTimeAbs"});
}

std::optional<double> ReadNumber(const Feature& feature)
{
    double real = 0;
    if (feature.GetValue(real) == ZltErrorSuccess)
    {
        return real;
    }
    std::int64_t integer = 0;
    if (feature.GetValue(integer) == ZltErrorSuccess)
    {
        return static_cast<double>(integer);
    }
    return std::nullopt;
}

std::optional<Range> ReadRange(const Feature& feature)
{
    double lowest = 0;
    double highest = 0;
    if (feature.GetRange(lowest, highest) == ZltErrorSuccess)
    {
        return Range{lowest, highest};
    }
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    if (feature.GetRange(minimum, maximum) == ZltErrorSuccess)
    {
        return Range{static_cast<double>(minimum), static_cast<double>(maximum)};
    }
    return std::nullopt;
}

ZltErrorType WriteNumber(Feature& feature, double value)
{
    const ZltErrorType result = feature.SetValue(value);
    return result == ZltErrorWrongType ? feature.SetValue(static_cast<std::int64_t>(value)) : result;
}

void WriteClamped(Feature& feature, double value)
{
    const std::optional<Range> range = ReadRange(feature);
    WriteNumber(feature, range ? Clamped(value, *range) : value);
}

QString ReadText(const Feature& feature)
{
    std::string text;
    feature.GetValue(text);
    return QString::fromStdString(text);
}

QStringList AvailableEntries(const Feature& feature)
{
    std::vector<std::string> names;
    feature.GetValues(names);
    QStringList available;
    for (const std::string& name : names)
    {
        bool isAvailable = false;
        if (feature.IsValueAvailable(name.c_str(), isAvailable) == ZltErrorSuccess && isAvailable)
        {
            available << QString::fromStdString(name);
        }
    }
    return available;
}

double Clamped(double value, const Range& range)
{
    return value <= range.first ? range.first : value >= range.second ? range.second : value;
}

} // namespace CameraFeatures
