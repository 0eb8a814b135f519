// The dataset file of the Tamorin Pro family, as the camera's firmware reads and makes it.
#pragma once

#include "Sensor/CorrectionMap.h"
#include "State/StateFile.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Simulation
{

struct TamorinProDataset
{
    std::vector<PixelPosition> pixels; // in sensor coordinates
    float temperature = 0.0F;          // degrees Celsius
    std::uint32_t gain = 0;            // ten-thousandths
    float exposureUs = 0.0F;
};

// Nothing for a file that is broken in any way or was made for a sensor of another size. Pixels outside the sensor are
// left out. Never throws for any bytes.
//
// The file is a chain of blocks: tag, length, content, all little-endian. Its pixels stand in the order in which the
// sensor is read out; the camera compares each pixel with the next entry and cannot go back.
std::optional<TamorinProDataset> DecodeTamorinProFile(const FileBytes& file, std::uint32_t width, std::uint32_t height);

// A file with the given pixels, in any order.
FileBytes EncodeTamorinProFile(TamorinProDataset dataset, std::uint32_t width, std::uint32_t height);

} // namespace Simulation
