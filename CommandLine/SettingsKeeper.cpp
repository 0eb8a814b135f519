#include "SettingsKeeper.h"

#include "CameraSession.h"
#include "Exception.h"

#include <QString>

#include <algorithm>

namespace CommandLine
{

namespace
{

using KTR::DPC::CameraAbstraction;
using KTR::DPC::FeatureType;

// In the order of putting back: the format before what depends on it, manual values before the automatic modes that may
// take them over, sizes before offsets.
constexpr const char* KeptFeatures[] = {"PixelFormat",     "ReverseX", "ReverseY",     "ExposureTime",
                                        "ExposureTimeAbs", "Gain",     "Width",        "Height",
                                        "OffsetX",         "OffsetY",  "ExposureAuto", "GainAuto"};

[[noreturn]] void RefuseText(const std::string& name, const std::string& text, const char* wanted)
{
    throw KTR::System::Exception(
        "\"" + text + "\" is no value of feature \"" + name + "\", which takes " + wanted + ".", true);
}

} // namespace

std::string FeatureText(CameraAbstraction& camera, const std::string& name)
{
    switch (camera.GetFeatureType(name))
    {
    case FeatureType::Integer:
        return std::to_string(camera.GetFeatureIntegerValue(name));
    case FeatureType::Float:
        return QString::number(camera.GetFeatureDoubleValue(name), 'g', 15).toStdString();
    case FeatureType::Enumeration:
        return camera.GetFeatureEnumValue(name);
    case FeatureType::String:
        return camera.GetFeatureStringValue(name);
    case FeatureType::Boolean:
        return camera.GetFeatureBooleanValue(name) ? "true" : "false";
    case FeatureType::Unknown:
    case FeatureType::Command:
    case FeatureType::Raw:
    case FeatureType::None:
        break;
    }
    return {};
}

void SetFeatureText(CameraAbstraction& camera, const std::string& name, const std::string& text)
{
    const QString value = QString::fromStdString(text);
    bool valid = false;
    switch (camera.GetFeatureType(name))
    {
    case FeatureType::Integer:
    {
        const qlonglong number = value.toLongLong(&valid, 0);
        if (!valid)
        {
            RefuseText(name, text, "a whole number");
        }
        camera.SetFeatureIntegerValue(name, number);
        return;
    }
    case FeatureType::Float:
    {
        const double number = value.toDouble(&valid);
        if (!valid)
        {
            RefuseText(name, text, "a number");
        }
        camera.SetFeatureDoubleValue(name, number);
        return;
    }
    case FeatureType::Boolean:
        if (value != "true" && value != "false" && value != "1" && value != "0")
        {
            RefuseText(name, text, "true or false");
        }
        camera.SetFeatureBooleanValue(name, value == "true" || value == "1");
        return;
    case FeatureType::Enumeration:
        camera.SetFeatureEnumValue(name, text);
        return;
    case FeatureType::String:
        camera.SetFeatureStringValue(name, text);
        return;
    case FeatureType::Command:
        camera.RunFeatureCommand(name);
        return;
    case FeatureType::Unknown:
    case FeatureType::Raw:
    case FeatureType::None:
        break;
    }
    throw KTR::System::Exception("Feature \"" + name + "\" cannot be set from a text.", true);
}

SettingsKeeper::SettingsKeeper(CameraAbstraction& camera)
{
    for (const char* name : KeptFeatures)
    {
        if (HasFeature(camera, name) && camera.IsFeatureReadable(name))
        {
            m_settings.push_back({name, FeatureText(camera, name)});
        }
    }
}

void SettingsKeeper::Restore(CameraAbstraction& camera) const
{
    std::string refused;
    for (const Setting& setting : m_settings)
    {
        try
        {
            if (FeatureText(camera, setting.name) != setting.text)
            {
                SetFeatureText(camera, setting.name, setting.text);
            }
        }
        catch (const KTR::System::Exception& failure)
        {
            refused += "\n" + failure.ToString();
        }
    }
    if (!refused.empty())
    {
        throw KTR::System::Exception("Not all settings of the camera could be put back:" + refused, true);
    }
}

} // namespace CommandLine
