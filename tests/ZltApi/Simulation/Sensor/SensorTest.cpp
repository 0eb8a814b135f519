// Frames of the simulated sensor: repeatable, physical, with just the seeded faults, and clean when corrected.
#include "Sensor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <ostream>
#include <stdexcept>

namespace Simulation
{

namespace
{

using Counts = std::vector<std::uint16_t>;

// In 8 bits: where a search for hot pixels on a dark frame draws the line.
constexpr unsigned Threshold = 40;
// What a reader of an image sees beyond its edges.
constexpr double OutsideBrightness = 34.7;

SensorConfig Config(ColorFilter filter, std::uint64_t seed)
{
    SensorConfig config;
    config.filter = filter;
    config.seed = seed;
    if (filter != ColorFilter::Mono)
    {
        config.width = 2464;
        config.height = 2056;
    }
    return config;
}

ExposureSettings Dark(double exposureUs = ReferenceExposureUs, double gainDb = 0.0,
                      double temperatureC = ReferenceTemperatureC)
{
    ExposureSettings settings;
    settings.exposureUs = exposureUs;
    settings.gainDb = gainDb;
    settings.temperatureC = temperatureC;
    settings.covered = true;
    return settings;
}

Counts Expose(Sensor& sensor, const ExposureSettings& settings)
{
    Counts raw;
    sensor.Expose(settings, raw);
    return raw;
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
        if (raw[i] >> 4U < static_cast<int>(Threshold))
        {
            continue;
        }
        const double own = raw[i] >> 4U;
        const double neighbours = brightness(i % width > 0, i - 1) + brightness(i % width + 1 < width, i + 1) +
                                  brightness(i >= width, i - width) + brightness(i + width < raw.size(), i + width);
        if (own > (own + neighbours) / 5.0)
        {
            found.push_back(i);
        }
    }
    return found;
}

CorrectionMap CorrectionOf(const Sensor& sensor)
{
    std::vector<PixelPosition> positions;
    for (const PixelFault& fault : sensor.Faults())
    {
        positions.push_back({fault.x, fault.y});
    }
    const SensorConfig& config = sensor.Config();
    return {config.width, config.height, config.filter, positions};
}

} // namespace

TEST(SensorTest, RepeatsItself)
{
    Sensor one(Config(ColorFilter::Mono, 5));
    Sensor two(Config(ColorFilter::Mono, 5));
    ExposureSettings settings;
    settings.frameNumber = 17;
    const Counts frame = Expose(one, settings);
    Expose(two, Dark(123.0, 7.0, 20.0));
    EXPECT_EQ(frame, Expose(two, settings)) << "what was exposed before must not matter";
    settings.frameNumber = 18;
    EXPECT_NE(frame, Expose(one, settings));
    Sensor other(Config(ColorFilter::Mono, 6));
    settings.frameNumber = 17;
    EXPECT_NE(frame, Expose(other, settings));
    for (const std::uint32_t width : {0U, MaxSensorSide + 1})
    {
        SensorConfig config;
        config.width = width;
        EXPECT_THROW(Sensor{config}, std::runtime_error);
    }
}

TEST(SensorTest, DarkFrameShowsExactlyTheHotPixels)
{
    const std::vector<ExposureSettings> allSettings{Dark(),
                                                    Dark(9'000.0),
                                                    Dark(20'000.0),
                                                    Dark(300'000.0),
                                                    Dark(ReferenceExposureUs, 24.0),
                                                    Dark(ReferenceExposureUs, 0.0, 58.0)};
    for (const ColorFilter filter : {ColorFilter::Mono, ColorFilter::BayerRG})
    {
        for (const std::uint64_t seed : {1U, 2U, 3U, 42U})
        {
            Sensor sensor(Config(filter, seed));
            const std::vector<std::size_t> hot = Pixels(sensor, FaultKind::Hot);
            for (std::size_t i = 0; i < allSettings.size() + 10; ++i)
            {
                ExposureSettings settings = i < allSettings.size() ? allSettings[i] : Dark();
                settings.frameNumber = i * i;
                EXPECT_EQ(FindHot(Expose(sensor, settings), sensor.Config().width), hot)
                    << "seed " << seed << ", frame " << i << ", " << sensor.Config().width << " wide";
            }
        }
    }
}

TEST(SensorTest, HotSignalFollowsExposureGainAndTemperature)
{
    struct Case
    {
        ExposureSettings settings;
        double factor;
    };
    const double doubledDb = 20.0 * std::log10(2.0);
    Sensor sensor(Config(ColorFilter::Mono, 3));
    for (const auto& [settings, factor] :
         {Case{Dark(), 1.0}, Case{Dark(5'000.0), 0.5}, Case{Dark(ReferenceExposureUs, 0.0, 33.0), 0.5},
          Case{Dark(2'500.0, doubledDb), 0.5}, Case{Dark(2'500.0, 0.0, 54.0), 1.0}, Case{Dark(0.0), 0.0}})
    {
        const Counts raw = Expose(sensor, settings);
        double expected = 0.0;
        double sum = 0.0;
        for (const PixelFault& fault : sensor.Faults())
        {
            if (fault.kind == FaultKind::Hot)
            {
                expected += fault.signal * factor + PedestalCounts;
                sum += raw[fault.y * sensor.Config().width + fault.x];
            }
        }
        EXPECT_NEAR(sum / expected, 1.0, 0.005) << "factor " << factor;
    }
}

TEST(SensorTest, NoiseIsReadNoiseAndShotNoise)
{
    Sensor sensor(Config(ColorFilter::Mono, 4));
    struct Case
    {
        ExposureSettings settings;
        double signal;
        double deviation;
    };
    ExposureSettings lit;
    const double background = SceneLuminance(SceneBackground) / 255.0 * SceneWhiteCounts;
    for (const auto& [settings, signal, deviation] :
         {Case{Dark(0.0), 0.0, 4.0}, Case{Dark(0.0, 12.0), 0.0, 4.0 * std::pow(10.0, 0.6)},
          Case{lit, background, std::sqrt(16.0 + background / 8.0)}})
    {
        ExposureSettings second = settings;
        second.frameNumber = 1;
        const Counts a = Expose(sensor, settings);
        const Counts b = Expose(sensor, second);
        // The top of the scene is background.
        const std::size_t count = 50 * sensor.Config().width;
        double squares = 0.0;
        for (std::size_t i = 0; i < count; ++i)
        {
            squares += (a[i] - b[i]) * (a[i] - b[i]) / 2.0;
        }
        EXPECT_NEAR(std::sqrt(squares / static_cast<double>(count)) / deviation, 1.0, 0.05);
        EXPECT_NEAR(std::accumulate(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(count), 0.0) /
                        static_cast<double>(count),
                    signal + PedestalCounts, 8.0);
    }
}

TEST(SensorTest, LightReachesAllButDeadPixels)
{
    for (const ColorFilter filter : {ColorFilter::Mono, ColorFilter::BayerGB})
    {
        Sensor sensor(Config(filter, 7));
        ExposureSettings settings;
        settings.blackLevel = 100.0;
        for (const double exposureUs : {100.0, ReferenceExposureUs, 1e7, 1e300})
        {
            settings.exposureUs = exposureUs;
            for (settings.frameNumber = 0; settings.frameNumber < 900; settings.frameNumber += 300)
            {
                const Counts raw = Expose(sensor, settings);
                std::vector<std::size_t> black;
                for (std::size_t i = 0; i < raw.size(); ++i)
                {
                    if (raw[i] == 0)
                    {
                        black.push_back(i);
                    }
                }
                EXPECT_EQ(black, Pixels(sensor, FaultKind::Dead));
                EXPECT_LE(*std::max_element(raw.begin(), raw.end()), MaxCount);
                EXPECT_TRUE(exposureUs < 1e7 || raw[sensor.Config().width * 3 + 1] == MaxCount) << "saturated";
            }
        }
    }
}

TEST(SensorTest, DiscWanders)
{
    Sensor sensor(Config(ColorFilter::Mono, 9));
    std::uint32_t lastX = ~0U;
    ExposureSettings settings;
    for (const std::uint64_t frame : {0ULL, 10ULL, 700ULL, 1'000'000ULL, ~0ULL})
    {
        settings.frameNumber = frame;
        const Counts raw = Expose(sensor, settings);
        const SceneRect area = sensor.View().DiscArea(frame);
        EXPECT_NE(area.x, lastX);
        lastX = area.x;
        const auto meanAt = [&](std::uint32_t x, std::uint32_t y)
        {
            double sum = 0.0;
            for (std::uint32_t i = 0; i < 25; ++i)
            {
                sum += raw[(y + i / 5) * sensor.Config().width + x + i % 5];
            }
            return (sum / 25.0 - PedestalCounts) * 255.0 / SceneWhiteCounts;
        };
        EXPECT_NEAR(meanAt(area.x + area.width / 2, area.y + area.height / 2), SceneLuminance(SceneDisc), 2.0);
        EXPECT_NEAR(meanAt(area.x, area.y), SceneLuminance(SceneBackground), 2.0) << "the square's corner";
    }
}

TEST(SensorTest, BlackLevelLiftsAndGammaBends)
{
    Sensor sensor(Config(ColorFilter::Mono, 8));
    ExposureSettings settings;
    const Counts plain = Expose(sensor, settings);
    settings.gamma = 0.5;
    const Counts bent = Expose(sensor, settings);
    settings.gamma = 1.0;
    settings.blackLevel = 200.0;
    const Counts lifted = Expose(sensor, settings);
    for (std::size_t i = 0; i < plain.size(); i += 7)
    {
        ASSERT_NEAR(bent[i], 4095.0 * std::sqrt(plain[i] / 4095.0), 0.51);
        ASSERT_TRUE(plain[i] == 0 || std::abs(lifted[i] - std::min(plain[i] + 200, 4095)) <= 1 || plain[i] > 3500);
    }
}

TEST(SensorTest, CorrectionHidesTheFaultsAndNothingElse)
{
    for (const ColorFilter filter : {ColorFilter::Mono, ColorFilter::BayerRG})
    {
        for (const std::uint64_t seed : {1U, 2U})
        {
            Sensor sensor(Config(filter, seed));
            const std::uint32_t width = sensor.Config().width;
            const CorrectionMap correction = CorrectionOf(sensor);
            EXPECT_EQ(correction.Size(), sensor.Faults().size());
            Counts dark = Expose(sensor, Dark());
            correction.Apply(dark);
            EXPECT_TRUE(FindHot(dark, width).empty());

            const Counts before = Expose(sensor, {});
            Counts after = before;
            correction.Apply(after);
            Counts restored = after;
            std::size_t judged = 0;
            for (const PixelFault& fault : sensor.Faults())
            {
                const std::size_t pixel = static_cast<std::size_t>(fault.y) * width + fault.x;
                restored[pixel] = before[pixel];
                // Well inside the upper margin all is background: what was replaced looks like the rest of it.
                if (fault.y < 80)
                {
                    const double background = SceneLuminance(SceneBackground) / 255.0 * SceneWhiteCounts;
                    EXPECT_NEAR(after[pixel], background + PedestalCounts, 90.0) << fault.x << ", " << fault.y;
                    ++judged;
                }
            }
            EXPECT_GT(judged, 5U);
            EXPECT_EQ(restored, before) << "a pixel that is not listed changed";
        }
    }
}

} // namespace Simulation
