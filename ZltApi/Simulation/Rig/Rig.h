// The list of simulated cameras.
#pragma once

#include "Rig/CameraConfig.h"

#include <string>
#include <vector>

namespace Simulation
{

// The cameras that are there when no rig file is named.
std::vector<CameraConfig> BuiltInRig();

// Reads a rig: an object with the array "cameras", whose objects have the keys
//   "id", "model", "serial"                          texts that identify the camera; required
//   "firmware"                                       a name of FirmwareList; required
//   "name", "family"                                 texts; by default model and serial, and the firmware's family
//   "width", "height", "filter", "seed"              the sensor; filter is "Mono", "BayerGR", "BayerRG", ...
//   "darkFrameFile", "darkFrameExposure"             a recorded dark frame and its exposure in microseconds;
//                                                  a relative name is looked for beside the rig file
//   "darkCurrent"                                    times that of an ordinary sensor
//   "scene"                                          "bench" or "chart"
//   "reverseX", "reverseY", "covered", "busy", "stream", "temperatureControl", "nonuniformityCorrection",
//   "adjustsPacketSize", "userReadFailsWhenEmpty"    true or false
//   "exposureFeature"                                "ExposureTime" or "ExposureTimeAbs"
//   "sizeIncrement"                                  step of width and height: 1, 2, 4, 8 or 16 pixels
//   "without"                                        array of the names of features that are to be missing
//   "frameRate", "blockSize", "fileSizeMax", "restartTime"   frames a second, bytes, bytes, milliseconds
//   "faults"                                         as ParseFaultRules
// Throws std::runtime_error with a full sentence when the text does not fit.
std::vector<CameraConfig> ParseRig(const std::string& json);

// The rig named by ZLT_SIMULATION_RIG, or else the built-in one. Throws as ParseRig does, also for a file that cannot
// be read.
std::vector<CameraConfig> LoadRig();

} // namespace Simulation
