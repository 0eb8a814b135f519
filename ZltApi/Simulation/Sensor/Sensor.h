// The image sensor of a simulated camera: pixels with faults, dark current, noise, and a scene in front of the lens.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Simulation
{

enum class ColorFilter
{
    Mono,
    BayerGR,
    BayerRG,
    BayerGB,
    BayerBG
};

enum class FaultKind
{
    Hot, // adds signal in the dark, more with exposure, gain and temperature
    Dead // gives no signal in the light
};

// A faulty pixel of the sensor, in sensor coordinates (zero-based, x from the left, y from the top).
struct PixelFault
{
    std::uint32_t x;
    std::uint32_t y;
    FaultKind kind;
    double signal; // Hot: 12-bit counts added at 10 ms, gain 0 dB and 40 degrees Celsius
};

// What the sensor is made of. The same configuration gives the same sensor, and the same frames.
struct SensorConfig
{
    std::uint32_t width = 1936;  // pixels
    std::uint32_t height = 1216; // pixels
    ColorFilter filter = ColorFilter::Mono;
    std::uint64_t seed = 1;
    // PGM or PNG image of the sensor's size or smaller; its 8-bit grey values become the dark signal from the top left
    // corner on, instead of the seeded hot faults. Empty: none.
    std::string darkFrameFile;
    // How long the recorded dark frame was exposed, in microseconds; the signal scales with the exposure from there.
    double darkFrameExposureUs = 1'000'000.0;
};

// State of the camera at the moment of one exposure.
struct ExposureSettings
{
    double exposureUs = 10'000.0;
    double gainDb = 0.0;
    double temperatureC = 40.0;
    double blackLevel = 0.0; // 12-bit counts
    double gamma = 1.0;
    bool covered = false;          // lens cover on: no light reaches the sensor
    std::uint64_t frameNumber = 0; // picks the noise
};

struct PixelPosition
{
    std::uint32_t x;
    std::uint32_t y;
};

// The pixels that the camera hides, ready for use on frames: each listed pixel is replaced from its nearest good
// neighbours of the same colour. Positions outside the sensor are ignored. Immutable once made.
class CorrectionMap
{
public:
    CorrectionMap(std::uint32_t width, std::uint32_t height, ColorFilter filter,
                  const std::vector<PixelPosition>& pixels);
    ~CorrectionMap();

    // Number of distinct pixels that are hidden.
    std::size_t Size() const;
    // Replaces the listed pixels of a raw frame in sensor coordinates, width x height 12-bit counts.
    void Apply(std::vector<std::uint16_t>& raw) const;

private:
    class Impl;
    std::unique_ptr<const Impl> m_impl;
};

// Not thread-safe for Expose on the same object; otherwise immutable.
class Sensor
{
public:
    // Throws std::runtime_error with a full sentence when the dark frame file cannot be used.
    explicit Sensor(const SensorConfig& config);
    ~Sensor();

    const SensorConfig& Config() const;
    // The seeded faults in row-major order. Empty when a recorded dark frame is used.
    const std::vector<PixelFault>& Faults() const;

    // Exposes one frame into width x height 12-bit counts (0 to 4095) in sensor coordinates. Reuses the vector's memory.
    void Expose(const ExposureSettings& settings, std::vector<std::uint16_t>& raw);

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

// The colour filter that a reader of the mirrored image sees.
ColorFilter MirroredFilter(ColorFilter filter, std::uint32_t width, std::uint32_t height, bool reverseX, bool reverseY);

// Pixel formats that FormatFrame makes for a sensor of that filter, as PFNC codes, the 8-bit raw form first.
std::vector<std::uint32_t> FrameFormats(ColorFilter filter);

// Bytes of one frame; 0 for a format that FormatFrame does not make.
std::uint64_t FrameSize(std::uint32_t pixelFormat, std::uint32_t width, std::uint32_t height);

// Turns raw counts into the bytes that leave the camera: cuts out the region at (offsetX, offsetY) of the mirrored image,
// interpolates colours where the format asks for it, scales to the format's depth. raw is sensorWidth x sensorHeight in
// sensor coordinates; bytes holds size bytes, at least FrameSize. Returns false for a format that cannot be made.
struct FrameGeometry
{
    std::uint32_t sensorWidth;
    std::uint32_t sensorHeight;
    std::uint32_t offsetX = 0;
    std::uint32_t offsetY = 0;
    std::uint32_t width;
    std::uint32_t height;
    bool reverseX = false;
    bool reverseY = false;
};
bool FormatFrame(const std::vector<std::uint16_t>& raw, ColorFilter filter, const FrameGeometry& geometry,
                 std::uint32_t pixelFormat, unsigned char* bytes, std::uint64_t size);

} // namespace Simulation
