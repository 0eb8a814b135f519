// Frames of the simulated sensor: repeatable, physical, with just the seeded faults, and clean when corrected.
#include "SensorTools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace Simulation
{

namespace
{

// In 8 bits: where a search for hot pixels on a dark frame draws the line.
constexpr int Threshold = 40;
// What a reader of an image sees beyond its edges.
constexpr double OutsideBrightness = 34.7;

SensorConfig Config(ColorFilter filter, std::uint64_t seed)
{
    const bool mono = filter == ColorFilter::Mono;
    return {mono ? 1936U : 2464U, mono ? 1216U : 2056U, filter, seed, {}};
}

ExposureSettings Dark(double exposureUs = ReferenceExposureUs, double gainDb = 0.0, double temperatureC = 40.0)
{
    return {exposureUs, gainDb, temperatureC, 0.0, 1.0, true};
}

std::vector<std::size_t> Pixels(const Sensor& sensor, FaultKind kind)
{
    std::vector<std::size_t> pixels;
    for (const PixelFault& fault : sensor.Faults())
    {
        if (fault.kind == kind)
        {
            pixels.push_back(static_cast<std::size_t>(fault.y) * sensor.Config().width + fault.x);
        }
    }
    return pixels;
}

// Pixels at or above the threshold in 8 bits that are brighter than the mean of themselves and their four neighbours.
std::vector<std::size_t> FindHot(const Counts& raw, std::uint32_t width)
{
    std::vector<std::size_t> found;
    const auto brightness = [&raw](bool inside, std::size_t i) { return inside ? raw[i] >> 4U : OutsideBrightness; };
    for (std::size_t i = 0; i < raw.size(); ++i)
    {
        const int own = raw[i] >> 4U;
        if (own >= Threshold && 4 * own > brightness(i % width > 0, i - 1) + brightness(i % width + 1 < width, i + 1) +
                                              brightness(i >= width, i - width) +
                                              brightness(i + width < raw.size(), i + width))
        {
            found.push_back(i);
        }
    }
    return found;
}

} // namespace

TEST(SensorTest, SeededFaultsStayOnSmallSensors)
{
    for (std::uint32_t variant = 0; variant < 2000; ++variant)
    {
        const std::uint32_t width = 1 + variant % 20;
        const std::uint32_t height = 1 + variant / 20 % 20;
        for (const PixelFault& fault : SeedFaults(width, height, variant))
        {
            EXPECT_TRUE(fault.x < width && fault.y < height) << width << " x " << height << ", seed " << variant;
        }
    }
}

TEST(SensorTest, RepeatsItself)
{
    Sensor one(Config(ColorFilter::Mono, 5));
    Sensor two(Config(ColorFilter::Mono, 5));
    Sensor other(Config(ColorFilter::Mono, 6));
    ExposureSettings settings;
    const Counts frame = Expose(one, settings);
    Expose(two, Dark(123.0, 7.0, 20.0));
    EXPECT_TRUE(frame == Expose(two, settings)) << "what was exposed before must not matter";
    EXPECT_FALSE(frame == Expose(other, settings));
    settings.frameNumber = 1;
    EXPECT_FALSE(frame == Expose(one, settings));
}

TEST(SensorTest, DarkFrameShowsExactlyTheHotPixels)
{
    for (std::uint64_t seed = 1; seed <= 8; ++seed)
    {
        Sensor sensor(Config(seed <= 4 ? ColorFilter::Mono : ColorFilter::BayerRG, seed));
        std::vector<ExposureSettings> frames(8, Dark());
        frames.insert(frames.end(), {Dark(9'000.0), Dark(300'000.0), Dark(ReferenceExposureUs, 24.0, 58.0)});
        for (std::size_t i = 0; i < frames.size(); ++i)
        {
            frames[i].frameNumber = i * i;
            EXPECT_EQ(FindHot(Expose(sensor, frames[i]), sensor.Config().width), Pixels(sensor, FaultKind::Hot))
                << "seed " << seed << ", frame " << i;
        }
    }
}

TEST(SensorTest, HotSignalFollowsExposureGainAndTemperature)
{
    Sensor sensor(Config(ColorFilter::Mono, 3));
    const double doubledDb = 20.0 * std::log10(2.0);
    for (const auto& [settings, factor] : {std::pair{Dark(), 1.0},
                                           {Dark(5'000.0), 0.5},
                                           {Dark(ReferenceExposureUs, 0.0, 33.0), 0.5},
                                           {Dark(2'500.0, doubledDb), 0.5},
                                           {Dark(2'500.0, 0.0, 54.0), 1.0},
                                           {Dark(0.0), 0.0}})
    {
        const Counts raw = Expose(sensor, settings);
        double expected = 0.0;
        double sum = 0.0;
        for (const PixelFault& fault : sensor.Faults())
        {
            expected += fault.kind == FaultKind::Hot ? fault.signal * factor + PedestalCounts : 0.0;
            sum += raw[fault.y * sensor.Config().width + fault.x];
        }
        EXPECT_NEAR(sum / expected, 1.0, 0.005) << "factor " << factor;
    }
}

TEST(SensorTest, LightBlackLevelAndGammaReachAllButDeadPixels)
{
    Sensor sensor(Config(ColorFilter::BayerGB, 8));
    ExposureSettings settings;
    const Counts plain = Expose(sensor, settings);
    settings.blackLevel = 200.0;
    const Counts lifted = Expose(sensor, settings);
    settings.blackLevel = 0.0;
    settings.gamma = 0.5;
    const Counts bent = Expose(sensor, settings);
    for (const std::size_t pixel : Pixels(sensor, FaultKind::Dead))
    {
        ASSERT_EQ(plain[pixel] + lifted[pixel] + bent[pixel], 0) << pixel;
    }
    for (std::size_t i = 0; i < plain.size(); ++i)
    {
        ASSERT_TRUE(plain[i] == 0 || plain[i] > 3500 || std::abs(lifted[i] - plain[i] - 200) <= 1) << i;
        ASSERT_NEAR(bent[i], 4095.0 * std::sqrt(plain[i] / 4095.0), 0.51) << i;
    }
}

} // namespace Simulation
