// The cooler of a sensor: setpoints, which of them is in force, and how the temperature follows.
#pragma once

#include "Features/EnumNode.h"
#include "Features/FeatureMap.h"
#include "Features/ValueNode.h"

#include <array>
#include <chrono>
#include <functional>

namespace Simulation
{

// In the mode "Auto" the camera itself takes the setpoint next to the temperature around it. In the mode "Manual" a
// setpoint takes force, with the value that it has then, by the command. The camera's lock is held around every call.
class TemperatureControl
{
public:
    using Clock = std::chrono::steady_clock;

    explicit TemperatureControl(std::function<Clock::time_point()> now = &Clock::now) : m_now(std::move(now)) {}

    void AddFeatures(FeatureMap& features);
    // To be called when kept values have been put back: the sensor has the temperature that they ask for.
    void Recall();

    double Temperature() const; // of the sensor, degrees Celsius

private:
    static constexpr std::size_t SetpointCount = 4;

    void AddSetpoints(FeatureMap& features);
    IntegerNode& Selected() const { return *m_setpoints[static_cast<std::size_t>(m_selector->Current() - 1)]; }
    void PutInForce(std::int64_t number);
    void PutInForceByItself();
    void Aim(double target);
    Clock::time_point Arrival() const;
    std::string State() const;

    const std::function<Clock::time_point()> m_now;
    EnumNode* m_controlMode = nullptr;
    EnumNode* m_setpointMode = nullptr;
    IntegerNode* m_selector = nullptr;
    IntegerNode* m_active = nullptr;
    std::array<IntegerNode*, SetpointCount> m_setpoints{}; // not shown to hosts
    double m_setpoint = 0.0;                               // in force, degrees Celsius

    // On the way from a temperature at a time to another one.
    double m_from = 0.0;
    double m_target = 0.0;
    Clock::time_point m_departure;
};

} // namespace Simulation
