// The defect file of the flash family inside the camera.
#pragma once

#include "Firmware/Firmware.h"
#include "State/StateFile.h"

#include <optional>
#include <vector>

namespace Simulation
{

// Nothing when the camera cannot use the bytes: a head for another sensor, another number of records than the head
// says, or a record that is none. Pixels outside of the sensor are left out.
std::optional<std::vector<MaskedPixel>> DecodeFlashFile(const FileBytes& bytes, SensorSize sensor);

// The file as the factory writes it. Pixels without a good neighbour of the same colour in reach are left out.
FileBytes EncodeFlashFile(const std::vector<PixelPosition>& pixels, SensorSize sensor, ColorFilter filter);

} // namespace Simulation
