// Remembers image settings of a camera and puts them back.
#pragma once

#include "CameraAbstraction.h"

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace CommandLine
{

// Takes the settings at construction. A restart of the camera in between does not matter, since they go back by name.
class SettingsKeeper
{
public:
    explicit SettingsKeeper(KTR::DPC::CameraAbstraction& camera);

    // Puts the settings back, in an order that a camera accepts. Goes on after a failure, and then throws
    // KTR::System::Exception that names the features which were refused.
    void Restore(KTR::DPC::CameraAbstraction& camera) const;

private:
    struct Setting
    {
        std::string name;
        std::string text;
    };
    std::vector<Setting> m_settings;
};

// Value of a feature as text: numbers in decimal, booleans as "true" or "false", raw bytes in hexadecimal, nothing for
// a command. Throws KTR::System::Exception.
std::string FeatureText(KTR::DPC::CameraAbstraction& camera, const std::string& name);

// Sets a feature from such a text; a command is run. Throws KTR::System::Exception, also for a text that is no value of
// the feature's type.
void SetFeatureText(KTR::DPC::CameraAbstraction& camera, const std::string& name, const std::string& text);

} // namespace CommandLine
