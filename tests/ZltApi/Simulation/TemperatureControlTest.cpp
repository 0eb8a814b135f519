// The temperature control in a time of its own.
#include "Device/TemperatureControl.h"
#include "TestRig.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Simulation
{

namespace
{

struct Cooler
{
    Cooler() { control.AddFeatures(features); }
    void SetSetpoint(std::int64_t number, std::int64_t degrees)
    {
        SetNode(features, "SensorTemperatureSetpointSelector", number);
        SetNode(features, "SensorTemperatureSetpointValue", degrees);
    }
    // The active setpoint, the state and the temperature after so many seconds more.
    std::string After(double seconds)
    {
        now += std::chrono::duration_cast<TemperatureControl::Clock::duration>(std::chrono::duration<double>(seconds));
        return std::to_string(NodeValue<std::int64_t>(features, "SensorTemperatureSetpointActive")) + " " +
               NodeValue<std::string>(features, "SensorTemperatureControlState") + " " +
               std::to_string(std::lround(control.Temperature()));
    }
    ZltErrorType Activate() { return features.Find("SensorTemperatureSetpointActivate")->Run(); }

    TemperatureControl::Clock::time_point now = TemperatureControl::Clock::time_point() + std::chrono::hours(1);
    TemperatureControl control{[this] { return now; }};
    FeatureMap features;
};

} // namespace

TEST(TemperatureControl, SetpointTakesForceByTheCommand)
{
    Cooler cooler;
    EXPECT_EQ("3 Stable 20", cooler.After(0.0));
    SetNode(cooler.features, "SensorTemperatureSetpointMode", std::string("Manual"));
    cooler.SetSetpoint(1, -12);
    cooler.SetSetpoint(2, 4);
    EXPECT_EQ("3 Stable 20", cooler.After(1.0)) << "not in force yet";
    ASSERT_EQ(ZltErrorSuccess, cooler.Activate());
    for (const auto& [seconds, state] : {std::pair{0.0, "2 Regulating 20"},
                                         {2.0, "2 Regulating 12"},
                                         {1.9, "2 Regulating 4"},
                                         {0.2, "2 Settling 4"},
                                         {0.8, "2 Settling 4"},
                                         {0.2, "2 Stable 4"}})
    {
        EXPECT_EQ(state, cooler.After(seconds));
    }
    cooler.SetSetpoint(2, 40);
    EXPECT_EQ("2 Stable 4", cooler.After(1.0)) << "the value that it had counts";
    SetNode(cooler.features, "SensorTemperatureSetpointSelector", std::int64_t{1});
    EXPECT_EQ(-12, NodeValue<std::int64_t>(cooler.features, "SensorTemperatureSetpointValue")) << "a value for each";

    cooler.Activate();
    Cooler later; // what a later program finds
    later.features.Restore(cooler.features.Save());
    later.control.Recall();
    EXPECT_EQ("1 Stable -12", later.After(0.0));
    SetNode(later.features, "SensorTemperatureSetpointSelector", std::int64_t{2});
    EXPECT_EQ(40, NodeValue<std::int64_t>(later.features, "SensorTemperatureSetpointValue"));
}

TEST(TemperatureControl, CameraChoosesAndControlEnds)
{
    Cooler cooler;
    cooler.SetSetpoint(4, 24);
    EXPECT_EQ("4 Regulating 22", cooler.After(0.5)) << "nearer to the temperature around";
    SetNode(cooler.features, "SensorTemperatureControlMode", std::string("Off"));
    EXPECT_EQ("4 Off 38", cooler.After(100.0)) << "warms up";
    cooler.SetSetpoint(4, 26);
    EXPECT_EQ("4 Off 38", cooler.After(1.0));
    SetNode(cooler.features, "SensorTemperatureControlMode", std::string("On"));
    EXPECT_EQ("4 Regulating 30", cooler.After(2.0));
    cooler.SetSetpoint(4, 45);
    EXPECT_EQ("3 Regulating 26", cooler.After(1.0));
}

} // namespace Simulation
