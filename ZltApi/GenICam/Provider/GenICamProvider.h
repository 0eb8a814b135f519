// The provider of real cameras.
#pragma once

#include "Aravis/Alarm.h"
#include "Device/GenICamCamera.h"
#include "Discovery/NetworkInterfaces.h"
#include "ZltApi/Provider.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace GenICam
{

// A thread of its own searches for cameras again and again, and reports those that come, go, are opened and are closed
// by other programs, and those that are lost while they are open here. The first search begins with Startup and takes a
// second; who asks for the cameras meanwhile waits for it.
class GenICamProvider final : public ZltApi::Provider
{
public:
    GenICamProvider();
    ~GenICamProvider() override;

    ZltErrorType Startup(ZltApi::ProviderEvents& events) override;
    void Shutdown() override;

    ZltErrorType GetTransportLayers(std::vector<ZltApi::TransportLayerPtr>& transportLayers) override;
    ZltErrorType GetInterfaces(std::vector<ZltApi::InterfacePtr>& interfaces) override;
    ZltErrorType GetCameras(std::vector<ZltApi::CameraPtr>& cameras) override;

private:
    using Clock = std::chrono::steady_clock;
    using CameraPtr = std::shared_ptr<GenICamCamera>;

    struct Slot
    {
        CameraPtr camera;
        int missed = 0; // searches in a row that did not find it
        bool isHeldElsewhere = false;
    };
    struct Change
    {
        CameraPtr camera;
        ZltApi::UpdateTriggerType reason;
    };

    void Run();
    // Each of these changes the lists and reports it. On the thread.
    void RemoveLost();
    void UpdateCameras(const std::vector<FoundDevice>& found);
    void UpdateAccess();
    void UpdateInterfaces();

    void ForgetRestarts(const std::vector<FoundDevice>& found);
    void Remove(const CameraPtr& camera);
    CameraPtr MakeCamera(const FoundDevice& found) const;
    void Report(const Change& change);

    const ZltApi::TransportLayerPtr m_gigEVision;
    const ZltApi::TransportLayerPtr m_usb3Vision;

    std::mutex m_control; // serialises Startup and Shutdown
    ZltApi::ProviderEvents* m_events = nullptr;
    std::shared_ptr<Alarm> m_alarm; // shared with the cameras, which may ring it until they go
    std::thread m_thread;
    std::atomic<bool> m_isRunning{false};
    std::map<std::string, Clock::time_point> m_restarting; // ids, each with the end of its grace; of the thread

    // Guards the lists, which only the thread changes while it runs; never held while an observer runs or a camera is
    // asked.
    std::mutex m_mutex;
    std::condition_variable m_searched;
    bool m_hasSearched = false;
    std::vector<Slot> m_slots;
    std::vector<NetworkInterface> m_networks;
    std::vector<ZltApi::InterfacePtr> m_interfaces; // those of m_networks, then that of USB
};

} // namespace GenICam
