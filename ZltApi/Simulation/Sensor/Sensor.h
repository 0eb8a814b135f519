// The image sensor of a simulated camera: pixels with faults, dark current, noise, and a scene in front of the lens.
#pragma once

#include "ColorFilter.h"
#include "CorrectionMap.h"
#include "FrameFormat.h"
#include "Scene.h"
#include "SensorFaults.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Simulation
{

// Where the faults' signals and the scene's brightness are given.
constexpr double ReferenceExposureUs = 10'000.0;
constexpr double ReferenceTemperatureC = 40.0;
// Dark signal doubles with this much more heat, in kelvin.
constexpr double DarkDoublingKelvin = 7.0;
// Counts that every live pixel gives without any signal, so that noise has room below.
constexpr double PedestalCounts = 32.0;
constexpr std::uint16_t MaxCount = 4095;
constexpr std::uint32_t MaxSensorSide = 16384;

// What the sensor is made of. The same configuration gives the same sensor, and the same frames.
struct SensorConfig
{
    std::uint32_t width = 1936;  // pixels
    std::uint32_t height = 1216; // pixels
    ColorFilter filter = ColorFilter::Mono;
    std::uint64_t seed = 1;
    // PGM or PNG image of the sensor's size or smaller; its 8-bit grey values become the dark signal from the top left
    // corner on, and the sensor has no seeded faults. Empty: none.
    std::string darkFrameFile;
    // How long the recorded dark frame was exposed, in microseconds, at 0 dB and the reference temperature; the signal
    // scales from there.
    double darkFrameExposureUs = 1'000'000.0;
    SceneKind scene = SceneKind::Bench;
    std::uint32_t longestRun = LongestRun; // of faulty pixels in a row, but for whole rows
    double darkCurrent = 1.0; // times that of an ordinary sensor; sensors that are made to be cooled have more
};

// State of the camera at the moment of one exposure.
struct ExposureSettings
{
    double exposureUs = ReferenceExposureUs;
    double gainDb = 0.0;
    double temperatureC = ReferenceTemperatureC;
    double blackLevel = 0.0; // 12-bit counts, added to the pedestal
    double gamma = 1.0;
    bool covered = false;          // lens cover on: no light reaches the sensor
    std::uint64_t frameNumber = 0; // picks the noise and the place of what moves
};

// Not thread-safe for Expose on the same object; otherwise immutable.
class Sensor
{
public:
    // Throws std::runtime_error with a full sentence when the size is not between 1 and MaxSensorSide or the dark frame
    // cannot be used.
    explicit Sensor(const SensorConfig& config);

    const SensorConfig& Config() const { return m_config; }
    const Scene& View() const { return m_scene; }
    // The seeded faults in row-major order. Empty when a recorded dark frame is used.
    const std::vector<PixelFault>& Faults() const { return m_faults; }

    // Exposes one frame into width x height 12-bit counts (0 to 4095) in sensor coordinates. Reuses the vector's
    // memory.
    void Expose(const ExposureSettings& settings, std::vector<std::uint16_t>& raw);

private:
    // What a unit of each signal gives in counts under some settings.
    struct Response
    {
        float offset = 0;       // counts without signal
        float perLight = 0;     // counts for a unit of m_light
        float perDark = 0;      // counts for a unit of m_dark
        float readVariance = 0; // counts squared
        float shotVariance = 0; // counts squared for each count of signal

        bool operator==(const Response& other) const;
    };

    Response ResponseTo(const ExposureSettings& settings) const;
    void LoadDarkSignal();
    void MakeLight();
    void MakeNoise();
    void Develop(const Response& response);
    void DrawDisc(const ExposureSettings& settings, std::vector<std::uint16_t>& raw) const;
    std::uint32_t NoiseStart(const ExposureSettings& settings, std::uint32_t y) const;
    float Brightness(const SceneColor& color, std::uint32_t x, std::uint32_t y) const;
    void ApplyGamma(double gamma, std::vector<std::uint16_t>& raw);

    SensorConfig m_config;
    Scene m_scene;
    std::vector<PixelFault> m_faults;

    // One value a pixel each: what never changes, ...
    std::vector<std::uint16_t> m_light; // brightness of the scene on this pixel
    std::vector<float> m_dark;          // dark signal in counts at the reference exposure
    std::vector<std::int16_t> m_noise;  // a stock of noise, longer than a row, from which each row takes a stretch
    // ... and what depends on the settings, kept for frames of the same settings.
    Response m_response;
    std::vector<std::int16_t> m_mean;
    std::vector<std::int16_t> m_deviation;
    double m_gamma = 1.0;
    std::vector<std::uint16_t> m_gammaTable;
};

} // namespace Simulation
