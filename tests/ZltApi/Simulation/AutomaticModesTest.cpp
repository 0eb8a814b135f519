// Automatic exposure and gain, in a time of their own.
#include "Device/ImageControl.h"

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
    Bench() : images(config, {[] { return false; }, [] {}, {}})
    {
        images.AddFeatures(features);
        Set("Gain", 0.0);
    }
    template <typename Value> void Set(const char* name, const Value& value)
    {
        EXPECT_EQ(ZltErrorSuccess, features.Find(name)->Set(value)) << name;
    }
    double Number(const char* name)
    {
        double value = -1.0;
        EXPECT_EQ(ZltErrorSuccess, features.Find(name)->Get(value)) << name;
        return value;
    }
    std::string Mode(const char* name)
    {
        std::string value;
        features.Find(name)->Get(value);
        return value;
    }
    double Mean() { return std::min(4095.0, light * Number("ExposureTime") * std::pow(10.0, Number("Gain") / 20.0)); }
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
    for (const double start : {20.0, 1'000.0, 90'000.0, 5'000'000.0})
    {
        for (const int period : {1'000, 16'667, 200'000})
        {
            Bench bench;
            bench.Set("ExposureTime", start);
            bench.Set("ExposureAuto", std::string("Once"));
            const double seconds = bench.Run(10.0, std::chrono::microseconds(period));
            EXPECT_EQ("Off", bench.Mode("ExposureAuto"));
            EXPECT_NEAR(1800.0, bench.Mean(), 96.0) << start << " at " << period;
            EXPECT_GT(seconds, 0.5) << "a host must see it move";
            EXPECT_LT(seconds, 6.0);
        }
    }
}

TEST(AutomaticModes, GainFollowsWhereTheExposureEnds)
{
    // Light, modes of exposure and gain, and where they end.
    struct Row
    {
        double light;
        const char* exposureMode;
        const char* gainMode;
        double exposure;
        double gain;
        const char* exposureAfter;
        const char* gainAfter;
    };
    const double sixDb = 20.0 * std::log10(2.0);
    for (const Row& row :
         {Row{0.09, "Off", "Once", 10'000.0, sixDb, "Off", "Off"},
          Row{0.009, "Once", "Once", 100'000.0, sixDb, "Off", "Off"},
          Row{0.09, "Once", "Continuous", 20'000.0, 0.0, "Off", "Continuous"},
          Row{0.0, "Once", "Once", 100'000.0, 24.0, "Off", "Off"}, Row{1000.0, "Once", "Off", 20.0, 0.0, "Off", "Off"},
          Row{0.0, "Continuous", "Off", 100'000.0, 0.0, "Continuous", "Off"}})
    {
        Bench bench;
        bench.light = row.light;
        bench.Set("ExposureAuto", std::string(row.exposureMode));
        bench.Set("GainAuto", std::string(row.gainMode));
        bench.Run(20.0);
        EXPECT_NEAR(row.exposure, bench.Number("ExposureTime"), 0.06 * row.exposure) << row.light;
        EXPECT_NEAR(row.gain, bench.Number("Gain"), 0.6) << row.light;
        EXPECT_EQ(row.exposureAfter, bench.Mode("ExposureAuto")) << row.light;
        EXPECT_EQ(row.gainAfter, bench.Mode("GainAuto")) << row.light;
        EXPECT_EQ(std::string("Off") == row.exposureAfter, bench.features.Find("ExposureTime")->IsWritable());
    }
}

TEST(AutomaticModes, ContinuousFollowsTheLight)
{
    Bench bench;
    bench.Set("ExposureAuto", std::string("Continuous"));
    for (const double light : {0.18, 0.6, 0.05, 0.18})
    {
        bench.light = light;
        bench.Run(6.0);
        EXPECT_NEAR(1800.0, bench.Mean(), 96.0) << light;
    }
    bench.Set("ExposureAuto", std::string("Off"));
    bench.Set("ExposureTime", 123.0);
    bench.Set("ExposureAuto", std::string("Continuous"));
    bench.Run(0.01);
    EXPECT_LT(bench.Number("ExposureTime"), 200.0) << "goes on from what the host has written";
}

} // namespace Simulation
