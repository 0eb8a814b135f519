// What a camera of the flash family tells about itself.
#pragma once

#include <cstdint>
#include <string>

namespace KTR::DPC
{

struct CameraInfo
{
    std::string modelName = "Unknown";
    std::string serialNumber = "Unknown";
    std::string sensorType = "Unknown"; // "Mono" or "Bayer" where its defects are to be encoded
    std::uint64_t sensorWidth = 0;      // pixels
    std::uint64_t sensorHeight = 0;     // pixels
    std::uint64_t reserved = 0;         // no camera tells it
};

} // namespace KTR::DPC
