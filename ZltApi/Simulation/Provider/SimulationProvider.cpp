// Cameras that come and go.
#include "Provider/SimulationProvider.h"

#include "NamedPlaces.h"
#include "Rig/Rig.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <utility>

namespace Simulation
{

namespace
{

constexpr const char* InterfaceId = "SIM0";
// Everything that changes is reported to the thread; this is for file systems that report nothing.
constexpr std::chrono::milliseconds LongestWait{1000};

ZltErrorType Complain(const std::exception& error, ZltErrorType result)
{
    std::fprintf(stderr, "The simulated cameras cannot start: %s\n", error.what());
    return result;
}

} // namespace

SimulationProvider::SimulationProvider()
    : m_transportLayer(std::make_shared<ProviderBase::NamedTransportLayer>("KTR Simulation")),
      m_interface(std::make_shared<ProviderBase::NamedInterface>(InterfaceId, "Simulated cameras"))
{
}

SimulationProvider::~SimulationProvider()
{
    Shutdown();
}

ZltErrorType SimulationProvider::Startup(ZltApi::ProviderEvents& events)
{
    const std::lock_guard control(m_control);
    if (m_running)
    {
        return ZltErrorInvalidCall;
    }
    std::vector<CameraConfig> rig;
    try
    {
        rig = LoadRig();
    }
    catch (const std::exception& error)
    {
        return Complain(error, ZltErrorBadParameter);
    }
    try
    {
        m_watch = std::make_shared<DirectoryWatch>();
        const std::filesystem::path root = CameraState::DefaultRoot();
        const std::lock_guard lock(m_mutex);
        for (auto& config : rig)
        {
            const std::filesystem::path folder = root / config.id;
            std::filesystem::create_directories(folder);
            m_watch->Add(folder);
            m_slots.push_back({std::move(config), CameraState(folder), nullptr});
        }
    }
    catch (const std::exception& error)
    {
        m_slots.clear();
        return Complain(error, ZltErrorResource);
    }
    m_events = &events;
    Reconcile();
    m_running = true;
    m_thread = std::thread([this] { Watch(); });
    return ZltErrorSuccess;
}

void SimulationProvider::Shutdown()
{
    const std::lock_guard control(m_control);
    if (!m_running)
    {
        return;
    }
    m_running = false;
    m_watch->Wake();
    m_thread.join();
    std::vector<Slot> slots;
    {
        const std::lock_guard lock(m_mutex);
        slots.swap(m_slots);
    }
    for (const Slot& slot : slots)
    {
        if (slot.camera)
        {
            slot.camera->Close();
            slot.camera->Device().Leave();
        }
    }
    m_events = nullptr;
}

ZltErrorType SimulationProvider::GetTransportLayers(std::vector<ZltApi::TransportLayerPtr>& transportLayers)
{
    transportLayers = {m_transportLayer};
    return ZltErrorSuccess;
}

ZltErrorType SimulationProvider::GetInterfaces(std::vector<ZltApi::InterfacePtr>& interfaces)
{
    interfaces = {m_interface};
    return ZltErrorSuccess;
}

ZltErrorType SimulationProvider::GetCameras(std::vector<ZltApi::CameraPtr>& cameras)
{
    if (!m_running)
    {
        return ZltErrorNotStarted;
    }
    cameras.clear();
    const std::lock_guard lock(m_mutex);
    for (const Slot& slot : m_slots)
    {
        // A camera that is on its way out stays out of the list even before that has been reported.
        if (slot.camera && slot.camera->Device().IsPresent())
        {
            cameras.push_back(slot.camera);
        }
    }
    return ZltErrorSuccess;
}

void SimulationProvider::Watch()
{
    while (m_running)
    {
        m_watch->Wait(TimeToNextChange());
        // A camera that has left is there again in the second round at the earliest, when its old self is gone.
        std::vector<Change> changes;
        do
        {
            changes = m_running ? Reconcile() : std::vector<Change>();
            Report(changes);
        } while (!changes.empty());
    }
}

std::chrono::milliseconds SimulationProvider::TimeToNextChange()
{
    const auto now = CameraState::Clock::now();
    auto wait = LongestWait;
    const std::lock_guard lock(m_mutex);
    for (const Slot& slot : m_slots)
    {
        if (const auto end = slot.state.RestartEnd(LongestRestart))
        {
            wait = std::min(
                wait, std::max(std::chrono::ceil<std::chrono::milliseconds>(*end - now), std::chrono::milliseconds(0)));
        }
    }
    return wait;
}

std::vector<SimulationProvider::Change> SimulationProvider::Reconcile()
{
    std::vector<Change> changes;
    const std::lock_guard lock(m_mutex);
    for (Slot& slot : m_slots)
    {
        Reconcile(slot, changes);
    }
    return changes;
}

void SimulationProvider::Reconcile(Slot& slot, std::vector<Change>& changes)
{
    const ControlState control = slot.state.Control();
    const bool away = !control.plugged || slot.state.RestartEnd(LongestRestart).has_value();
    if (slot.camera && (away || !slot.camera->Device().IsPresent()))
    {
        changes.push_back({std::exchange(slot.camera, nullptr), ZltApi::UpdateTriggerUnplugged});
        return;
    }
    if (away)
    {
        return;
    }
    if (!slot.camera)
    {
        slot.camera = MakeCamera(slot);
        slot.heldElsewhere = slot.camera->Device().IsHeldElsewhere();
        changes.push_back({slot.camera, ZltApi::UpdateTriggerPluggedIn});
    }
    CameraDevice& device = slot.camera->Device();
    device.SetCovered(control.covered.value_or(slot.config.covered));
    const bool heldElsewhere = device.IsHeldElsewhere();
    if (std::exchange(slot.heldElsewhere, heldElsewhere) != heldElsewhere)
    {
        changes.push_back({slot.camera, ZltApi::UpdateTriggerStateChanged});
    }
}

void SimulationProvider::Report(const std::vector<Change>& changes)
{
    for (const Change& change : changes)
    {
        if (change.reason == ZltApi::UpdateTriggerUnplugged)
        {
            change.camera->Device().Leave();
        }
        m_events->CameraListChanged(change.camera, change.reason);
    }
}

SimulationProvider::SimulatedCameraPtr SimulationProvider::MakeCamera(const Slot& slot)
{
    auto device =
        std::make_shared<CameraDevice>(slot.config, slot.state.Folder(), [watch = m_watch] { watch->Wake(); });
    const CameraConfig& config = slot.config;
    return std::make_shared<SimulatedCamera>(
        std::move(device), ProviderBase::CameraIdentity{config.id, config.name, config.model, config.serial,
                                                        InterfaceId, m_transportLayer});
}

} // namespace Simulation
