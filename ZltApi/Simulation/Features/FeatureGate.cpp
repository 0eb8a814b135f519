// Faults on the way into a camera.
#include "Features/FeatureGate.h"

#include <chrono>
#include <thread>
#include <utility>

namespace Simulation
{

FeatureGate::FeatureGate(FaultPlan& faults, std::function<void()> unplug)
    : m_faults(faults),
      m_unplug(std::move(unplug))
{
}

ZltErrorType FeatureGate::Enter(const char* operation, const std::string& feature, FaultEffect& effect)
{
    if (!m_open)
    {
        return ZltErrorDeviceNotOpen;
    }
    effect = m_faults.Hit(operation, feature);
    if (effect.delayMs > 0)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(effect.delayMs));
    }
    if (effect.unplug)
    {
        m_unplug();
        return ZltErrorDeviceNotOpen;
    }
    return effect.code ? static_cast<ZltErrorType>(*effect.code) : ZltErrorSuccess;
}

} // namespace Simulation
