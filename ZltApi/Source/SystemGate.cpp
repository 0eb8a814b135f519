// The gate through which calls and events pass while the camera API runs, and which waits for them when it stops.
#include "SystemGate.h"

#include <utility>

namespace ZltApi
{

namespace
{

thread_local int t_callbackDepth = 0;

struct CallbackScope
{
    CallbackScope() { ++t_callbackDepth; }
    ~CallbackScope() { --t_callbackDepth; }
    CallbackScope(const CallbackScope&) = delete;
    CallbackScope& operator=(const CallbackScope&) = delete;
};

} // namespace

SystemGate::Passage::Passage(SystemGate& gate)
    : m_gate(gate),
      m_inside(
          [&gate]
          {
              const std::lock_guard<std::mutex> lock(gate.m_mutex);
              gate.m_inside += gate.m_open ? 1 : 0;
              return gate.m_open;
          }())
{
}

SystemGate::Passage::~Passage()
{
    if (m_inside)
    {
        const std::lock_guard<std::mutex> lock(m_gate.m_mutex);
        --m_gate.m_inside;
        m_gate.m_left.notify_all();
    }
}

void SystemGate::Open()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_open = true;
}

bool SystemGate::Close()
{
    // An observer's destructor may call back, so the observers go after the lock.
    CameraList camera;
    InterfaceList interface;
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_open)
    {
        return false;
    }
    m_open = false;
    m_left.wait(lock, [this] { return m_inside == 0; });
    std::swap(camera, m_camera);
    std::swap(interface, m_interface);
    return true;
}

bool SystemGate::IsInsideCallback() noexcept
{
    return t_callbackDepth > 0;
}

template <class Observer>
ZltErrorType SystemGate::Change(ObserverList<Observer>& list, const std::shared_ptr<Observer>& observer,
                                ZltErrorType (ObserverList<Observer>::*change)(const std::shared_ptr<Observer>&))
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_open)
    {
        return ZltErrorNotStarted;
    }
    return observer ? (list.*change)(observer) : ZltErrorBadParameter;
}

template ZltErrorType SystemGate::Change(CameraList&, const ICameraListObserverPtr&,
                                         ZltErrorType (CameraList::*)(const ICameraListObserverPtr&));
template ZltErrorType SystemGate::Change(InterfaceList&, const IInterfaceListObserverPtr&,
                                         ZltErrorType (InterfaceList::*)(const IInterfaceListObserverPtr&));

// An observer that was unregistered during the round, by itself or by another one, is left out.
template <class Observer, class Call>
void SystemGate::Notify(const ObserverList<Observer>& list, const Call& call) noexcept
{
    const Passage passage(*this);
    if (!passage)
    {
        return;
    }
    const CallbackScope scope;
    std::unique_lock<std::mutex> lock(m_mutex);
    // A copy: the list may change while the lock is released.
    std::vector<std::shared_ptr<Observer>> round;
    round = list.GetAll();
    for (const std::shared_ptr<Observer>& observer : round)
    {
        if (list.Contains(observer))
        {
            lock.unlock();
            try
            {
                call(*observer);
            }
            catch (...)
            {
                // The other observers and the provider's thread go on whatever happens to this one.
            }
            lock.lock();
        }
    }
    lock.unlock(); // before the round lets go of its observers
}

void SystemGate::CameraListChanged(const CameraPtr& camera, UpdateTriggerType reason) noexcept
{
    Notify(m_camera, [&](ICameraListObserver& observer) { observer.CameraListChanged(camera, reason); });
}

void SystemGate::InterfaceListChanged(const InterfacePtr& interface, UpdateTriggerType reason) noexcept
{
    Notify(m_interface, [&](IInterfaceListObserver& observer) { observer.InterfaceListChanged(interface, reason); });
}

} // namespace ZltApi
