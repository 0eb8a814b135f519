// What one simulated camera is.
#pragma once

#include "Faults/FaultRule.h"
#include "Sensor/Sensor.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace Simulation
{

struct CameraConfig
{
    std::string id; // also the name of the camera's folder
    std::string name;
    std::string model;
    std::string family;   // DeviceFamilyName
    std::string firmware; // a name of FirmwareList
    std::string serial;
    SensorConfig sensor;
    bool reverseX = false; // has the feature ReverseX
    bool reverseY = false;
    bool covered = false; // the lens cover, as long as the control program has not moved it
    bool busy = false;    // another program holds it, as long as the control program has not freed it
    std::string exposureFeature = "ExposureTime"; // its name in this camera
    bool temperatureControl = false;              // its sensor is cooled
    bool nonuniformityCorrection = false;
    std::uint32_t sizeIncrement = 2;          // step of width and height, pixels
    bool stream = true;                       // it has one
    std::vector<std::string> without;         // features that a camera like it would have, and this one has not
    bool adjustsPacketSize = false;           // its stream has the feature GVSPAdjustPacketSize
    double frameRate = 60.0;                  // highest and initial rate, frames a second
    std::uint32_t blockSize = 512;            // largest block of a file transfer, bytes
    std::uint32_t fileSizeMax = 1U << 20;     // bytes; of a rectangle table its capacity
    bool userReadFailsWhenEmpty = false;      // an empty user file cannot be opened for reading
    std::chrono::milliseconds flashTime{700}; // to erase a file; programming it takes half as long
    std::chrono::milliseconds restartTime{1000};
    std::vector<FaultRule> faults;
};

// The longest restart that a rig may ask for.
constexpr std::chrono::milliseconds LongestRestart{600'000};

} // namespace Simulation
