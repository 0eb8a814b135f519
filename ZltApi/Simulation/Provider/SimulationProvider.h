// The provider of the simulated cameras.
#pragma once

#include "Device/SimulatedCamera.h"
#include "Rig/CameraConfig.h"
#include "State/CameraState.h"
#include "State/DirectoryWatch.h"
#include "ZltApi/Provider.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace Simulation
{

// A thread of its own watches the state directory for what the control program and other processes do there, and
// reports cameras that come, go, are opened and are closed elsewhere.
class SimulationProvider final : public ZltApi::Provider
{
public:
    SimulationProvider();
    ~SimulationProvider() override;

    // ZltErrorBadParameter for a rig that cannot be used, ZltErrorResource for a state directory that cannot be
    // written; the reason goes to standard error as a sentence.
    ZltErrorType Startup(ZltApi::ProviderEvents& events) override;
    void Shutdown() override;

    ZltErrorType GetTransportLayers(std::vector<ZltApi::TransportLayerPtr>& transportLayers) override;
    ZltErrorType GetInterfaces(std::vector<ZltApi::InterfacePtr>& interfaces) override;
    ZltErrorType GetCameras(std::vector<ZltApi::CameraPtr>& cameras) override;

private:
    using SimulatedCameraPtr = std::shared_ptr<SimulatedCamera>;

    // A place for a camera, whether it is there now or not.
    struct Slot
    {
        CameraConfig config;
        CameraState state;
        SimulatedCameraPtr camera; // null while the camera is away
        bool heldElsewhere = false;
    };
    struct Change
    {
        SimulatedCameraPtr camera;
        ZltApi::UpdateTriggerType reason;
    };

    void Prepare();
    void Watch();
    // Brings the cameras in line with the state directory and tells what has changed.
    std::vector<Change> Reconcile();
    void Reconcile(Slot& slot, std::vector<Change>& changes);
    void Report(const std::vector<Change>& changes);
    std::chrono::milliseconds TimeToNextChange();
    SimulatedCameraPtr MakeCamera(const Slot& slot);

    const ZltApi::TransportLayerPtr m_transportLayer;
    const ZltApi::InterfacePtr m_interface;

    std::mutex m_control; // serialises Startup and Shutdown
    ZltApi::ProviderEvents* m_events = nullptr;
    std::shared_ptr<DirectoryWatch> m_watch; // shared with the cameras, which may wake it until they go
    std::thread m_thread;
    std::atomic<bool> m_running{false};

    std::mutex m_mutex; // guards the slots; never held while an observer runs
    std::vector<Slot> m_slots;
};

} // namespace Simulation
