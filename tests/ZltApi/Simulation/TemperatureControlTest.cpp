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
    void Activate() { EXPECT_EQ(ZltErrorSuccess, features.Find("SensorTemperatureSetpointActivate")->Run()); }

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
    cooler.Activate();
    for (const auto& [seconds, state] : {std::pair{2.0, "2 Regulating 12"}, {2.1, "2 Settling 4"}, {1.0, "2 Stable 4"}})
    {
        EXPECT_EQ(state, cooler.After(seconds));
    }
    cooler.SetSetpoint(2, 40);
    EXPECT_EQ("2 Stable 4", cooler.After(1.0)) << "the value that it had counts";
    SetNode(cooler.features, "SensorTemperatureSetpointSelector", std::int64_t{1});
    cooler.Activate();
    Cooler later; // what a later program finds
    later.features.Restore(cooler.features.Save());
    later.control.Recall();
    EXPECT_EQ("1 Stable -12", later.After(0.0)) << "a value for each setpoint";
}

TEST(TemperatureControl, CameraChoosesAndControlEnds)
{
    Cooler cooler;
    cooler.SetSetpoint(4, 24);
    EXPECT_EQ("4 Regulating 22", cooler.After(0.5)) << "nearer to the temperature around";
    SetNode(cooler.features, "SensorTemperatureControlMode", std::string("Off"));
    EXPECT_EQ("4 Off 38", cooler.After(100.0)) << "warms up";
}

} // namespace Simulation
