// The temperature control in a time of its own.
#include "Device/TemperatureControl.h"

#include <gtest/gtest.h>

namespace Simulation
{

namespace
{

struct Cooler
{
    Cooler() { control.AddFeatures(features); }
    template <typename Value> Value Get(const char* name)
    {
        Value value{};
        EXPECT_EQ(ZltErrorSuccess, features.Find(name)->Get(value)) << name;
        return value;
    }
    template <typename Value> void Set(const char* name, const Value& value)
    {
        EXPECT_EQ(ZltErrorSuccess, features.Find(name)->Set(value)) << name;
    }
    void Pass(double seconds)
    {
        now += std::chrono::duration_cast<TemperatureControl::Clock::duration>(std::chrono::duration<double>(seconds));
    }
    std::string State() { return Get<std::string>("SensorTemperatureControlState"); }
    std::int64_t Active() { return Get<std::int64_t>("SensorTemperatureSetpointActive"); }
    void SetSetpoint(std::int64_t number, std::int64_t degrees)
    {
        Set("SensorTemperatureSetpointSelector", number);
        Set("SensorTemperatureSetpointValue", degrees);
    }
    FeatureNode& Activate() { return *features.Find("SensorTemperatureSetpointActivate"); }

    TemperatureControl::Clock::time_point now = TemperatureControl::Clock::time_point() + std::chrono::hours(1);
    TemperatureControl control{[this] { return now; }};
    FeatureMap features;
};

} // namespace

TEST(TemperatureControl, SetpointTakesForceByTheCommand)
{
    Cooler cooler;
    EXPECT_EQ("Stable", cooler.State());
    EXPECT_EQ(3, cooler.Active());
    EXPECT_EQ(20.0, cooler.control.Temperature());
    EXPECT_FALSE(cooler.Activate().IsWritable()) << "the camera chooses";
    cooler.Set("SensorTemperatureSetpointMode", std::string("Manual"));
    cooler.SetSetpoint(1, -12);
    cooler.SetSetpoint(2, 4);
    EXPECT_EQ("Stable", cooler.State()) << "not in force yet";
    ASSERT_TRUE(cooler.Activate().IsWritable());
    ASSERT_EQ(ZltErrorSuccess, cooler.Activate().Run());
    bool done = true;
    EXPECT_TRUE(cooler.Activate().IsDone(done) == ZltErrorSuccess && !done) << "takes its time";
    EXPECT_EQ(2, cooler.Active());
    // Seconds that pass, the state then, and the temperature: 16 degrees at 4 a second.
    for (const auto& [seconds, state, temperature] : {std::tuple{0.0, "Regulating", 20.0},
                                                      {2.0, "Regulating", 12.0},
                                                      {1.9, "Regulating", 4.4},
                                                      {0.2, "Settling", 4.0},
                                                      {0.8, "Settling", 4.0},
                                                      {0.2, "Stable", 4.0}})
    {
        cooler.Pass(seconds);
        EXPECT_EQ(state, cooler.State());
        EXPECT_NEAR(temperature, cooler.control.Temperature(), 1e-6);
    }
    cooler.SetSetpoint(2, 40);
    EXPECT_EQ("Stable", cooler.State()) << "the value that it had counts";
    cooler.Set("SensorTemperatureSetpointSelector", std::int64_t{1});
    EXPECT_EQ(-12, cooler.Get<std::int64_t>("SensorTemperatureSetpointValue")) << "each setpoint has its own value";
    EXPECT_EQ(ZltErrorInvalidValue, cooler.features.Find("SensorTemperatureSetpointValue")->Set(std::int64_t{46}));
    EXPECT_EQ(ZltErrorInvalidValue, cooler.features.Find("SensorTemperatureSetpointSelector")->Set(std::int64_t{5}));
}

TEST(TemperatureControl, CameraChoosesAndControlEnds)
{
    Cooler cooler;
    cooler.SetSetpoint(4, 25);
    EXPECT_EQ(4, cooler.Active()) << "nearer to the temperature around";
    EXPECT_EQ("Regulating", cooler.State());
    cooler.Pass(1.0);
    cooler.Set("SensorTemperatureControlMode", std::string("Off"));
    EXPECT_EQ("Off", cooler.State());
    cooler.Pass(100.0);
    EXPECT_EQ(38.0, cooler.control.Temperature()) << "warms up";
    cooler.SetSetpoint(4, 24);
    EXPECT_EQ("Off", cooler.State());
    EXPECT_EQ(38.0, cooler.control.Temperature());
    cooler.Set("SensorTemperatureControlMode", std::string("On"));
    EXPECT_EQ("Regulating", cooler.State());
    cooler.Pass(2.0);
    EXPECT_NEAR(30.0, cooler.control.Temperature(), 1e-6) << "turns round on its way";
    cooler.SetSetpoint(4, 40);
    EXPECT_EQ(3, cooler.Active());
    cooler.Pass(1.0);
    EXPECT_NEAR(26.0, cooler.control.Temperature(), 1e-6);

    // What a later program finds.
    cooler.Set("SensorTemperatureSetpointMode", std::string("Manual"));
    cooler.SetSetpoint(1, -7);
    cooler.Activate().Run();
    Cooler later;
    later.features.Restore(cooler.features.Save());
    later.control.Recall();
    EXPECT_EQ(1, later.Active());
    EXPECT_EQ("Stable", later.State());
    EXPECT_EQ(-7.0, later.control.Temperature());
    later.Set("SensorTemperatureSetpointSelector", std::int64_t{4});
    EXPECT_EQ(40, later.Get<std::int64_t>("SensorTemperatureSetpointValue"));
}

} // namespace Simulation
