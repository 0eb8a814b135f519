// A camera of the Rivo U family in memory, 640 x 480, with one file for all of its sets.
#pragma once

#include "MemoryCamera.h"

#include <boost/make_shared.hpp>

inline boost::shared_ptr<MemoryCamera> makeRivoUCamera(std::uint64_t sizeMax = 4096)
{
    auto camera = boost::make_shared<MemoryCamera>();
    camera->features = {{"DeviceModelName", {0, "Rivo U-1", {}, {}}},
                        {"SensorWidth", {640, {}, {}, {}}},
                        {"SensorHeight", {480, {}, {}, {}}},
                        {"CorrectionSelector", {0, "Other", {"Other", "DefectPixelCorrection"}, {}}},
                        {"CorrectionSetSelector", {0, "Factory", {"Factory", "User"}, {}}},
                        {"CorrectionSetDefault", {0, "Factory", {"Factory", "User"}, {}}},
                        {"CorrectionMode", {0, "Off", {"Off", "On"}, {}}}};
    for (const char* name : {"DefectPixelCorrectionUser", "DefectPixelCorrection"})
    {
        camera->files.push_back(boost::make_shared<MemoryFile>(name, sizeMax, true, camera->log));
    }
    return camera;
}
