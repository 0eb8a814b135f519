// The door through which every operation on an open camera passes.
#pragma once

#include "Faults/FaultPlan.h"
#include "Guarded.h"
#include "ZltApi/ResultCodes.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <string>

namespace Simulation
{

// Holds the camera's lock for one operation, refuses it when the camera is closed or gone, and lets the faults happen.
// Thread-safe. The operations behind it must not call observers.
class FeatureGate
{
public:
    // The unplug function is called without the camera's lock when a fault takes the camera away.
    FeatureGate(FaultPlan& faults, std::function<void()> unplug);

    // The lock over everything inside the camera.
    std::recursive_mutex& Mutex() { return m_mutex; }

    // Changed under the lock.
    void SetOpen(bool open) { m_open = open; }
    bool IsOpen() const { return m_open; }

    // Runs the action, a function from const FaultEffect& to ZltErrorType, under the camera's lock.
    template <typename Action>
    ZltErrorType Run(const char* operation, const std::string& feature, const Action& action) noexcept
    {
        return ProviderBase::Guarded(
            [&]
            {
                FaultEffect effect;
                if (const ZltErrorType result = Enter(operation, feature, effect); result != ZltErrorSuccess)
                {
                    return result;
                }
                const std::lock_guard lock(m_mutex);
                return m_open ? action(effect) : ZltErrorDeviceNotOpen;
            });
    }

private:
    ZltErrorType Enter(const char* operation, const std::string& feature, FaultEffect& effect);

    FaultPlan& m_faults;
    const std::function<void()> m_unplug;
    std::recursive_mutex m_mutex;
    std::atomic<bool> m_open{false};
};

} // namespace Simulation
