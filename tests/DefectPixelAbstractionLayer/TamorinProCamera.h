// A camera of the Tamorin Pro family in memory, 640 x 480, with a factory's set and a user's set of one pixel.
#pragma once

#include "Hex.h"
#include "MemoryCamera.h"

#include <boost/make_shared.hpp>

inline boost::shared_ptr<MemoryCamera> makeTamorinProCamera(std::uint64_t sizeMax = 4096)
{
    auto camera = boost::make_shared<MemoryCamera>();
    camera->features = {{"SensorWidth", {640, {}, {}, {}}},
                        {"SensorHeight", {480, {}, {}, {}}},
                        {"FileSelector", {0, "UserData", {"UserData", "DPC_000", "DPC_User_1"}, {}}},
                        {"FileOperationSelector", {0, "Open", {"Open", "WriteDescription"}, {}}},
                        {"FileDescriptionBuffer", {}},
                        {"DPCDatasetFileId", {0x2000, {}, {}, {}}},
                        {"DPCDatasetAuto", {0, "On", {"Off", "On"}, {}}},
                        {"DPCMode", {0, "On", {"Off", "On"}, {}}}};
    for (const std::string name : {"UserData", "DPC_000", "DPC_User_1"})
    {
        camera->files.push_back(boost::make_shared<MemoryFile>(name, sizeMax, name != "DPC_000", camera->log));
    }
    camera->files.back()->content = bytesFrom("'PDA1 08000000 0340 0500 00C000C0");
    return camera;
}
