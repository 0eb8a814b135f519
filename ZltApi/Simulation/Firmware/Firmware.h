// What differs between camera families: correction features, files, registers, and what the camera makes of them.
#pragma once

#include "Faults/FaultPlan.h"
#include "Features/FeatureMap.h"
#include "Rig/CameraConfig.h"
#include "Sensor/Sensor.h"
#include "State/CameraState.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace Simulation
{

// What the camera around a firmware offers to it. Everything runs under the camera's lock. References outlive the
// firmware.
struct FirmwareServices
{
    const CameraConfig& config;
    CameraState& state;
    FaultPlan& faults;
    // The sensor's faults as the factory could know them. Makes the sensor when it is not there yet.
    std::function<const std::vector<PixelFault>&()> sensorFaults;
    // To be called when what Correction would make may have changed.
    std::function<void()> correctionChanged;
};

// In pixels.
struct SensorSize
{
    std::uint32_t width;
    std::uint32_t height;
};

// Mirroring of the image against the sensor.
struct Mirroring
{
    bool x = false;
    bool y = false;
};

// One family's firmware in one camera. The camera's lock is held around every call.
class Firmware
{
public:
    virtual ~Firmware() = default;

    // Adds the family's features. Called once, when the camera is made.
    virtual void AddFeatures(FeatureMap& features) = 0;
    // The camera has got power: permanent memory is loaded into working memory. Kept features have their initial
    // values; Resume follows.
    virtual void PowerUp() = 0;
    // The camera is being opened, with power since an earlier time: working memory comes back from the state folder.
    virtual void Resume() = 0;
    // The host has gone, with or without a goodbye: open files are dropped.
    virtual void Disconnect() = 0;
    // A frame with this exposure is about to be taken.
    virtual void BeginFrame(double /*exposureUs*/) {}

    // The pixels that are to be hidden now, in sensor coordinates.
    virtual std::vector<PixelPosition> HiddenPixels(Mirroring /*mirroring*/) const { return {}; }
    // What is done to frames now. The camera chooses the neighbours, unless the family's tables do.
    virtual CorrectionMap Correction(const SensorConfig& sensor, Mirroring mirroring) const
    {
        return {sensor.width, sensor.height, sensor.filter, HiddenPixels(mirroring)};
    }

    // Camera memory. The vector's size is the number of bytes to move.
    virtual ZltErrorType ReadMemory(std::uint64_t, std::vector<unsigned char>&) { return ZltErrorNotSupported; }
    virtual ZltErrorType WriteMemory(std::uint64_t, const std::vector<unsigned char>&) { return ZltErrorNotSupported; }
};

} // namespace Simulation
