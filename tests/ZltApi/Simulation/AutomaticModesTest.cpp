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
    double Run(double seconds, std::chrono::microseconds period = std::chrono::microseconds(16'667))
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
    double light = 0.18; // counts in a microsecond: well exposed at 10 ms
};

} // namespace

TEST(AutomaticModes, OnceTakesSecondsWhateverTheFrameRate)
{
    for (const double start : {20.0, 90'000.0, 5'000'000.0})
    {
        for (const int period : {1'000, 16'667, 200'000})
        {
            Bench bench;
            SetNode(bench.features, "ExposureTime", start);
            SetNode(bench.features, "ExposureAuto", std::string("Once"));
            const double seconds = bench.Run(10.0, std::chrono::microseconds(period));
            EXPECT_NEAR(1800.0, bench.Mean(), 96.0) << start << " at " << period;
            EXPECT_TRUE(seconds > 0.5 && seconds < 6.0) << seconds;
        }
    }
}

TEST(AutomaticModes, GainFollowsWhereTheExposureEnds)
{
    // Light, modes of exposure and gain, and where they end.
    using Row = std::tuple<double, const char*, const char*, double, double, const char*, const char*>;
    const double sixDb = 20.0 * std::log10(2.0);
    for (const auto& [light, exposureMode, gainMode, exposure, gain, exposureAfter, gainAfter] :
         {Row{0.09, "Off", "Once", 10'000.0, sixDb, "Off", "Off"},
          Row{0.009, "Once", "Once", 100'000.0, sixDb, "Off", "Off"},
          Row{0.09, "Once", "Continuous", 20'000.0, 0.0, "Off", "Continuous"},
          Row{0.0, "Once", "Once", 100'000.0, 24.0, "Off", "Off"}, Row{1000.0, "Once", "Off", 20.0, 0.0, "Off", "Off"},
          Row{0.0, "Continuous", "Off", 100'000.0, 0.0, "Continuous", "Off"}})
    {
        Bench bench;
        bench.light = light;
        SetNode(bench.features, "ExposureAuto", std::string(exposureMode));
        SetNode(bench.features, "GainAuto", std::string(gainMode));
        bench.Run(20.0);
        EXPECT_NEAR(exposure, NodeValue<double>(bench.features, "ExposureTime"), 0.06 * exposure) << light;
        EXPECT_NEAR(gain, NodeValue<double>(bench.features, "Gain"), 0.6) << light;
        EXPECT_EQ(exposureAfter, NodeValue<std::string>(bench.features, "ExposureAuto")) << light;
        EXPECT_EQ(gainAfter, NodeValue<std::string>(bench.features, "GainAuto")) << light;
    }
}

} // namespace Simulation
