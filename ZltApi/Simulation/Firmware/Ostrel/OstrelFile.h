// The defect file of the Ostrel family, as the camera's firmware reads and makes it.
#pragma once

#include "Firmware/Firmware.h"
#include "Sensor/Sensor.h"
#include "State/StateFile.h"

#include <cstdint>
#include <vector>

namespace Simulation
{

// The pixels that the camera hides with that file while the image is mirrored in that way, in sensor coordinates. Empty
// for a file that is broken in any way, that was made for a sensor of another size, or that has no data set for the
// mirroring. Never throws for any bytes.
//
// The file is a chain of blocks: tag, length, content, all little-endian. Rows of a data set stand in the order in
// which the sensor is read out. In a set that is not mirrored vertically the camera jumps through the index table: the
// rows of each sixteenth of the sensor are taken from the place that the table gives, and from nowhere else.
std::vector<PixelPosition> DecodeOstrelFile(const FileBytes& file, SensorSize sensor, Mirroring mirroring);

// A file with the given pixels. Data sets for mirrored images are left out where the camera cannot mirror.
FileBytes EncodeOstrelFile(std::vector<PixelPosition> pixels, SensorSize sensor, bool reverseX, bool reverseY);

} // namespace Simulation
