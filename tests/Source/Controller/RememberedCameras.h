// What the cache tells of cameras, as one text.
#pragma once

#include "CamerasInfoWriterReader.h"

#include <string>
#include <vector>

// What was in the vector, then what the file adds: "ID=flag " for each camera.
inline std::string RememberedCameras(std::vector<CameraAccessInfo> infos = {})
{
    CamerasInfoWriterReader().GetInformationFromFile(infos);
    std::string text;
    for (const CameraAccessInfo& info : infos)
    {
        text += info.id + (info.dpcSupported ? "=1 " : "=0 ");
    }
    return text;
}
