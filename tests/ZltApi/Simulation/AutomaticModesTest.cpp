// Automatic exposure and gain, in a time of their own.
#include "Device/ImageControl.h"
#include "TestRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace Simulation
{

namespace
{

// Exposure and gain in front of a linear sensor.
struct Bench
{
    Bench() : images(config, {[] { return false; }, [] {}, {}}) { images.AddFeatures(features); }
    double Mean() const
    {
        const double gain = std::pow(10.0, NodeValue<double>(features, "Gain") / 20.0);
        return std::min(4095.0, light * NodeValue<double>(features, "ExposureTime") * gain);
    }
    // Returns the seconds until the modes are off again, or all the time that they had.
    double Run(double seconds, std::chrono::microseconds period)
    {
        double time = 0.0;
        for (; images.IsAdapting() && time < seconds; time += std::chrono::duration<double>(period).count())
        {
            images.Adapt(Mean(), period);
        }
        return time;
    }

    CameraConfig config;
    FeatureMap features;
    ImageControl images;
    double light = 0.0; // counts in a microsecond: 0.18 is well exposed at 10 ms
};

} // namespace

TEST(AutomaticModes, EndInSecondsWhateverTheStartAndTheFrameRate)
{
    struct Row
    {
        double light, start;
        int period; // microseconds from frame to frame
        const char *exposureMode, *gainMode;
        double exposure, gain; // where they end
    };
    const double sixDb = 20.0 * std::log10(2.0);
    for (const auto& [light, start, period, exposureMode, gainMode, exposure, gain] :
         {Row{0.18, 20.0, 1'000, "Once", "Off", 10'000.0, 0.0}, Row{0.18, 20.0, 200'000, "Once", "Off", 10'000.0, 0.0},
          Row{0.18, 5'000'000.0, 16'667, "Once", "Off", 10'000.0, 0.0},
          Row{0.009, 10'000.0, 16'667, "Once", "Once", 100'000.0, sixDb},
          Row{0.09, 10'000.0, 16'667, "Once", "Continuous", 20'000.0, 0.0},
          Row{0.0, 10'000.0, 16'667, "Once", "Once", 100'000.0, 24.0},
          Row{1000.0, 10'000.0, 16'667, "Continuous", "Off", 20.0, 0.0}})
    {
        Bench bench;
        bench.light = light;
        SetNode(bench.features, "ExposureTime", start);
        SetNode(bench.features, "ExposureAuto", std::string(exposureMode));
        SetNode(bench.features, "GainAuto", std::string(gainMode));
        const double seconds = bench.Run(10.0, std::chrono::microseconds(period));
        EXPECT_GT(seconds, 0.5);
        EXPECT_NEAR(exposure, NodeValue<double>(bench.features, "ExposureTime"), 0.06 * exposure) << light;
        EXPECT_NEAR(gain, NodeValue<double>(bench.features, "Gain"), 0.6) << light;
        for (const auto& [name, mode] : {std::pair{"ExposureAuto", exposureMode}, {"GainAuto", gainMode}})
        {
            const std::string after = mode == std::string("Once") ? "Off" : mode;
            EXPECT_EQ(after, NodeValue<std::string>(bench.features, name)) << light;
        }
    }
}

} // namespace Simulation
