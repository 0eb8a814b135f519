// Cameras in memory, 640 x 480, whose correction sets are files.
#pragma once

#include "Hex.h"
#include "MemoryCamera.h"

#include <boost/make_shared.hpp>

// One of the Ostrel family, with a user's set and a factory's.
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

// One of the Tamorin Pro family, with a factory's set and a user's of one pixel.
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
