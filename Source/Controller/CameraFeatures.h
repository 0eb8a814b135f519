// Reading and writing a camera's features by name, whatever number type they have.
#pragma once

#include "ZltApi/Camera.h"

#include <QString>
#include <QStringList>

#include <initializer_list>
#include <optional>
#include <utility>

// All functions take a null camera for one without features. Any thread.
namespace CameraFeatures
{

using Range = std::pair<double, double>; // minimum, maximum

// The first of the names that the camera has, or null.
ZltApi::FeaturePtr Find(const ZltApi::CameraPtr& camera, std::initializer_list<const char*> names);
ZltApi::FeaturePtr Find(const ZltApi::CameraPtr& camera, const char* name);
// "ExposureTime", or its older spelling.
ZltApi::FeaturePtr FindExposure(const ZltApi::CameraPtr& camera);

// Float or integer features; nothing when the camera does not tell.
std::optional<double> ReadNumber(const ZltApi::Feature& feature);
std::optional<Range> ReadRange(const ZltApi::Feature& feature);
// An integer feature gets the value without its fraction.
ZltErrorType WriteNumber(ZltApi::Feature& feature, double value);
// Writes the value, or the end of the range that it is beyond.
void WriteClamped(ZltApi::Feature& feature, double value);

// String or enumeration features; empty when the camera does not tell.
QString ReadText(const ZltApi::Feature& feature);
// The type's default when the camera has no such feature or does not tell.
template <class Value> Value Read(const ZltApi::CameraPtr& camera, const char* name)
{
    Value value{};
    const ZltApi::FeaturePtr feature = Find(camera, name);
    return feature && feature->GetValue(value) == ZltErrorSuccess ? value : Value{};
}
// The entries of an enumeration that can be chosen now, in the camera's order.
QStringList AvailableEntries(const ZltApi::Feature& feature);

double Clamped(double value, const Range& range);

} // namespace CameraFeatures
