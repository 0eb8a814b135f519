// News of cameras that have gone, from Aravis's threads.
#include "Device/ControlLoss.h"

#include <map>
#include <mutex>

namespace GenICam
{

namespace
{

// Devices are looked up here, under the lock, so that no call can meet an object that is going.
struct Listeners
{
    std::mutex mutex;
    std::map<ArvDevice*, std::function<void()>> functions;
};

Listeners& TheListeners()
{
    static Listeners& listeners = *new Listeners; // never destroyed: a thread of Aravis's may outlive everything
    return listeners;
}

void OnControlLost(ArvDevice* device, void*)
{
    const std::lock_guard lock(TheListeners().mutex);
    const auto found = TheListeners().functions.find(device);
    if (found != TheListeners().functions.end())
    {
        found->second();
    }
}

} // namespace

ControlLoss::ControlLoss(ArvDevice* device, std::function<void()> lost) : m_device(device)
{
    {
        const std::lock_guard lock(TheListeners().mutex);
        TheListeners().functions[device] = std::move(lost);
    }
    m_handler = g_signal_connect(device, "control-lost", G_CALLBACK(OnControlLost), nullptr);
}

ControlLoss::~ControlLoss()
{
    g_signal_handler_disconnect(m_device, m_handler);
    const std::lock_guard lock(TheListeners().mutex);
    TheListeners().functions.erase(m_device);
}

} // namespace GenICam
