// Features of the temperature control, and the sensor's way from one temperature to the next.
#include "Device/TemperatureControl.h"

#include "Features/CommandNode.h"

#include <algorithm>
#include <cmath>

namespace Simulation
{

namespace
{

constexpr std::int64_t ColdestSetpoint = -20; // degrees Celsius
constexpr std::int64_t WarmestSetpoint = 45;
constexpr std::array<std::int64_t, 4> FactorySetpoints{-10, 5, 20, 35};
constexpr double AroundTheCamera = 24.0; // degrees Celsius
constexpr double WithoutControl = 38.0;  // what the sensor warms up to
constexpr double DegreesPerSecond = 4.0;
constexpr std::chrono::seconds SettlingTime{1};
constexpr std::chrono::milliseconds ActivationTime{1500};

} // namespace

void TemperatureControl::AddFeatures(FeatureMap& features)
{
    auto& state = features.Add<EnumNode>("SensorTemperatureControlState", "Stable",
                                         std::vector<std::string>{"Off", "Regulating", "Settling", "Stable"});
    state.OnRead([this] { return State(); });
    state.ReadOnly();
    m_controlMode =
        &features.Add<EnumNode>("SensorTemperatureControlMode", "On", std::vector<std::string>{"Off", "On"});
    m_controlMode->KeepWhilePowered();
    m_controlMode->OnWrite(
        [this](const std::string& mode)
        {
            Aim(mode == "On" ? m_setpoint : WithoutControl);
            return ZltErrorSuccess;
        });
    m_setpointMode =
        &features.Add<EnumNode>("SensorTemperatureSetpointMode", "Auto", std::vector<std::string>{"Auto", "Manual"});
    m_setpointMode->KeepWhilePowered();
    m_setpointMode->OnWrite(
        [this](const std::string& mode)
        {
            if (mode == "Auto")
            {
                PutInForceByItself();
            }
            return ZltErrorSuccess;
        });
    AddSetpoints(features);
    auto& activate = features.Add<CommandNode>(
        "SensorTemperatureSetpointActivate",
        [this]
        {
            PutInForce(m_selector->Current());
            return ZltErrorSuccess;
        },
        ActivationTime);
    activate.WritableIf([this] { return m_setpointMode->Current() == "Manual"; });
    Recall();
}

void TemperatureControl::AddSetpoints(FeatureMap& features)
{
    const IntegerNode::Limits numbers{1, SetpointCount};
    const IntegerNode::Limits degrees{ColdestSetpoint, WarmestSetpoint};
    m_selector = &features.Add<IntegerNode>("SensorTemperatureSetpointSelector", 1, numbers);
    m_selector->KeepWhilePowered();
    m_active = &features.Add<IntegerNode>("SensorTemperatureSetpointActive", 1, numbers);
    m_active->KeepWhilePowered();
    m_active->ReadOnly();
    for (std::size_t i = 0; i < SetpointCount; ++i)
    {
        const std::string name = "SensorTemperatureSetpointValue" + std::to_string(i + 1);
        m_setpoints[i] = &features.Add<IntegerNode>(name, FactorySetpoints[i], degrees);
        m_setpoints[i]->KeepWhilePowered();
        features.Hide(name);
    }
    auto& value = features.Add<IntegerNode>("SensorTemperatureSetpointValue", 0, degrees);
    value.OnRead([this] { return Selected().Current(); });
    value.OnWrite(
        [this](std::int64_t wanted)
        {
            Selected().Assign(wanted);
            if (m_setpointMode->Current() == "Auto")
            {
                PutInForceByItself();
            }
            return ZltErrorSuccess;
        });
}

void TemperatureControl::PutInForce(std::int64_t number)
{
    m_active->Assign(number);
    m_setpoint = static_cast<double>(m_setpoints[static_cast<std::size_t>(number - 1)]->Current());
    if (m_controlMode->Current() == "On")
    {
        Aim(m_setpoint);
    }
}

void TemperatureControl::PutInForceByItself()
{
    const auto nearest =
        std::min_element(m_setpoints.begin(), m_setpoints.end(),
                         [](const IntegerNode* a, const IntegerNode* b)
                         {
                             const auto distance = [](const IntegerNode* node)
                             { return std::abs(static_cast<double>(node->Current()) - AroundTheCamera); };
                             return distance(a) < distance(b);
                         });
    PutInForce(nearest - m_setpoints.begin() + 1);
}

void TemperatureControl::Recall()
{
    if (m_setpointMode->Current() == "Auto")
    {
        PutInForceByItself();
    }
    else
    {
        PutInForce(m_active->Current());
    }
    m_target = m_controlMode->Current() == "On" ? m_setpoint : WithoutControl;
    m_from = m_target;
    m_departure = m_now() - SettlingTime;
}

void TemperatureControl::Aim(double target)
{
    if (target != m_target)
    {
        m_from = Temperature();
        m_target = target;
        m_departure = m_now();
    }
}

double TemperatureControl::Temperature() const
{
    const double way = m_target - m_from;
    const double gone = std::chrono::duration<double>(m_now() - m_departure).count() * DegreesPerSecond;
    return gone >= std::abs(way) ? m_target : m_from + std::copysign(gone, way);
}

TemperatureControl::Clock::time_point TemperatureControl::Arrival() const
{
    const std::chrono::duration<double> way(std::abs(m_target - m_from) / DegreesPerSecond);
    return m_departure + std::chrono::duration_cast<Clock::duration>(way);
}

std::string TemperatureControl::State() const
{
    if (m_controlMode->Current() == "Off")
    {
        return "Off";
    }
    if (m_now() < Arrival())
    {
        return "Regulating";
    }
    return m_now() < Arrival() + SettlingTime ? "Settling" : "Stable";
}

} // namespace Simulation
