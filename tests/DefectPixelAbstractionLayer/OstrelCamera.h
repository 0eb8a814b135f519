// A camera of the Ostrel family in memory, 640 x 480, with a user's set and a factory set.
#pragma once

#include "MemoryCamera.h"

#include <boost/make_shared.hpp>

inline boost::shared_ptr<MemoryCamera> makeOstrelCamera(std::uint64_t sizeMax = 4096)
{
    auto camera = boost::make_shared<MemoryCamera>();
    camera->features = {{"DeviceFamilyName", {0, "OSTREL", {}, {}}},
                        {"SensorWidth", {640, {}, {}, {}}},
                        {"SensorHeight", {480, {}, {}, {}}},
                        {"CorrectionSelector", {0, "Other", {"Other", "DefectPixelCorrection"}, {}}},
                        {"CorrectionSet", {0, "Preset", {"Preset", "User"}, {}}},
                        {"CorrectionSetDefault", {0, "Preset", {"Preset", "User"}, {}}},
                        {"CorrectionMode", {0, "Off", {"Off", "On"}, {}}}};
    for (const char* name : {"OtherUser", "DefectPixelCorrectionPreset", "DefectPixelCorrectionUser"})
    {
        const bool writable = name != std::string("DefectPixelCorrectionPreset");
        camera->files.push_back(boost::make_shared<MemoryFile>(name, sizeMax, writable, camera->log));
    }
    return camera;
}

// One of the Rivo U family: a selector for the sets "Factory" and "User", and one file for both.
inline boost::shared_ptr<MemoryCamera> makeRivoUCamera(std::uint64_t sizeMax = 4096)
{
    auto camera = makeOstrelCamera(sizeMax);
    camera->features["DeviceFamilyName"].text = "Rivo U";
    camera->features.erase("CorrectionSet");
    camera->features["CorrectionSetSelector"] =
        camera->features["CorrectionSetDefault"] = {0, "Factory", {"Factory", "User"}, {}};
    camera->files.push_back(boost::make_shared<MemoryFile>("DefectPixelCorrection", sizeMax, true, camera->log));
    return camera;
}
