// The defect file of the Rivo U family, as the camera's firmware reads and makes it.
#pragma once

#include "Firmware/Firmware.h"
#include "State/StateFile.h"

#include <vector>

namespace Simulation
{

// The pixels that the camera hides with that file while the image is mirrored in that way, in sensor coordinates. Empty
// for a file that is broken in any way or does not have the data sets of this camera's mirrorings. Never throws for any
// bytes.
//
// All numbers are little-endian. A head of 12 bytes (the words 2 and 4, the file's size, the size of a data set, 32);
// the index and the data set of the upright image; the data set of the image mirrored horizontally, where the camera
// can do that; then, where it can mirror vertically, another index and the data sets of the two images mirrored
// vertically. The data sets have one length and end with a mark. The camera finds the rows of each sixteenth of the
// sensor through the index, so it checks the index before it uses a file.
std::vector<PixelPosition> DecodeRivoUFile(const FileBytes& file, SensorSize sensor, Mirroring able,
                                           Mirroring mirroring);

// A file with the given pixels for a camera that can mirror in these ways.
FileBytes EncodeRivoUFile(std::vector<PixelPosition> pixels, SensorSize sensor, Mirroring able);

} // namespace Simulation
