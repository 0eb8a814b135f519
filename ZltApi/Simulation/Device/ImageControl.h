// Image settings of a simulated camera: geometry, format, exposure and gain, and the automatic modes.
#pragma once

#include "Features/EnumNode.h"
#include "Features/FeatureMap.h"
#include "Features/ValueNode.h"
#include "Firmware/Firmware.h"
#include "Rig/CameraConfig.h"
#include "Sensor/Sensor.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace Simulation
{

// Everything that one exposure needs to know about the camera's settings.
struct ImageSettings
{
    ExposureSettings exposure; // without the cover and the frame number
    FrameGeometry geometry{};
    std::uint32_t pixelFormat = 0;
    std::uint64_t payloadSize = 0; // bytes
    Mirroring mirroring;
    std::chrono::microseconds framePeriod{0};
};

// The camera's lock is held around every call.
class ImageControl
{
public:
    struct Hooks
    {
        std::function<bool()> isStreaming; // geometry and format are locked then
        std::function<void()> mirroringChanged;
        std::function<double()> temperature; // of the sensor, degrees Celsius; empty: always the same
    };

    ImageControl(const CameraConfig& config, Hooks hooks);

    void AddFeatures(FeatureMap& features);

    // To be called when kept values have been put back: settles what does not fit together.
    void Recall();

    ImageSettings Settings() const;
    Mirroring CurrentMirroring() const;

    // Whether the automatic modes want Adapt to be called after the next frame.
    bool IsAdapting() const;
    // Moves exposure and gain some way towards a well exposed picture; all of it takes a few seconds. The mean is that
    // of a raw frame, in 12-bit counts, and the time that since the last step.
    void Adapt(double mean, std::chrono::microseconds elapsed);
    double ExposureTime() const { return m_exposure->Current(); } // microseconds

private:
    void AddGeometry(FeatureMap& features);
    void AddMirroring(FeatureMap& features);
    void AddPixelFormat(FeatureMap& features);
    void AddExposure(FeatureMap& features);
    IntegerNode& AddSide(FeatureMap& features, const char* name, std::uint32_t sensorSide, IntegerNode** offset);
    BooleanNode* AddReverse(FeatureMap& features, const char* name, bool Mirroring::*side);

    // A feature that an automatic mode moves by less than its increment, and where it would stand without one.
    struct Follower
    {
        FloatNode* node = nullptr;
        EnumNode* mode = nullptr;
        double exact = 0.0;

        bool IsFollowing() const { return mode->Current() != "Off"; }
        // Takes what a host has written meanwhile.
        double Exact();
        void Move(double value);
        // A mode that was to act once is off again.
        void Finish();
    };

    void LockWhileStreaming(FeatureNode& node) const;
    std::vector<std::uint32_t> Formats(Mirroring mirroring) const;
    std::uint32_t CurrentFormat() const { return static_cast<std::uint32_t>(m_pixelFormat->CurrentNumber()); }
    void ChangeMirroring(Mirroring next);
    double FrameRate() const;

    const CameraConfig& m_config;
    const Hooks m_hooks;
    IntegerNode* m_width = nullptr;
    IntegerNode* m_height = nullptr;
    IntegerNode* m_offsetX = nullptr;
    IntegerNode* m_offsetY = nullptr;
    BooleanNode* m_reverseX = nullptr; // null where the camera cannot mirror
    BooleanNode* m_reverseY = nullptr;
    EnumNode* m_pixelFormat = nullptr;
    FloatNode* m_exposure = nullptr;
    FloatNode* m_gain = nullptr;
    Follower m_autoExposure;
    Follower m_autoGain;
    FloatNode* m_blackLevel = nullptr;
    FloatNode* m_gamma = nullptr;
    FloatNode* m_frameRate = nullptr;
    FloatNode* m_temperature = nullptr;
};

} // namespace Simulation
