// A camera of the Ostrel family in memory, 640 x 480, with a user's set and a factory set.
#pragma once

#include "MemoryCamera.h"

#include <boost/make_shared.hpp>

inline boost::shared_ptr<MemoryCamera> makeOstrelCamera(std::uint64_t sizeMax = 4096)
{
    auto camera = boost::make_shared<MemoryCamera>();
    camera->add("DeviceFamilyName", std::string("OSTREL"));
    camera->add("SensorWidth", 640);
    camera->add("SensorHeight", 480);
    camera->addEnum("CorrectionSelector", {"FixedPatternNoiseCorrection", "DefectPixelCorrection"});
    camera->addEnum("CorrectionSet", {"Preset", "User"});
    camera->addEnum("CorrectionSetDefault", {"Preset", "User"});
    camera->addEnum("CorrectionMode", {"Off", "On"});
    camera->addFile("FixedPatternNoiseUser", sizeMax, true);
    camera->addFile("DefectPixelCorrectionPreset", sizeMax, false);
    camera->addFile("DefectPixelCorrectionUser", sizeMax, true);
    return camera;
}
