// The gate through which calls and events pass while the camera API runs, and which waits for them when it stops.
#pragma once

#include "ObserverList.h"
#include "ZltApi/Observers.h"
#include "ZltApi/Provider.h"

#include <condition_variable>
#include <cstddef>
#include <mutex>

namespace ZltApi
{

// Closed at first. While it is closed nobody gets in, observers cannot be registered and events are dropped. Observers
// are called without a lock, so that they may call anything but Open and Close. Thread-safe.
class SystemGate final : public ProviderEvents
{
public:
    // Somebody inside: the gate does not finish closing before the object is gone. Converts to false when the gate was
    // closed already.
    class Passage
    {
    public:
        explicit Passage(SystemGate& gate);
        ~Passage();
        Passage(const Passage&) = delete;
        Passage& operator=(const Passage&) = delete;
        explicit operator bool() const { return m_inside; }

    private:
        SystemGate& m_gate;
        const bool m_inside;
    };

    void Open();

    // Lets nobody in any more, waits until all have left and forgets the observers. False when it was closed already.
    bool Close();

    // Whether the calling thread is within an observer's callback, where waiting for the gate would never end.
    static bool IsInsideCallback() noexcept;

    ZltErrorType Register(const ICameraListObserverPtr& observer)
    {
        return Change(m_camera, observer, &CameraList::Add);
    }
    ZltErrorType Unregister(const ICameraListObserverPtr& observer)
    {
        return Change(m_camera, observer, &CameraList::Remove);
    }
    ZltErrorType Register(const IInterfaceListObserverPtr& observer)
    {
        return Change(m_interface, observer, &InterfaceList::Add);
    }
    ZltErrorType Unregister(const IInterfaceListObserverPtr& observer)
    {
        return Change(m_interface, observer, &InterfaceList::Remove);
    }

    void CameraListChanged(const CameraPtr& camera, UpdateTriggerType reason) noexcept override;
    void InterfaceListChanged(const InterfacePtr& interface, UpdateTriggerType reason) noexcept override;

private:
    using CameraList = ObserverList<ICameraListObserver>;
    using InterfaceList = ObserverList<IInterfaceListObserver>;

    template <class Observer>
    ZltErrorType Change(ObserverList<Observer>& list, const std::shared_ptr<Observer>& observer,
                        ZltErrorType (ObserverList<Observer>::*change)(const std::shared_ptr<Observer>&));
    template <class Observer, class Call> void Notify(const ObserverList<Observer>& list, const Call& call) noexcept;

    std::mutex m_mutex; // guards all members
    std::condition_variable m_left;
    bool m_open = false;
    std::size_t m_inside = 0;
    CameraList m_camera;
    InterfaceList m_interface;
};

} // namespace ZltApi
