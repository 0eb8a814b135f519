// The search for cameras, and what it reports.
#include "Provider/GenICamProvider.h"

#include "Discovery/ControlPort.h"
#include "Discovery/DeviceSearch.h"
#include "NamedPlaces.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <system_error>
#include <utility>

namespace GenICam
{

namespace
{

constexpr const char* UsbInterfaceId = "USB";
constexpr std::chrono::milliseconds SearchPause{1500};
constexpr int MostMissed = 2; // one answer may get lost on the network
// A camera that starts anew may answer until it really goes, and some are so quick that no search misses them.
constexpr std::chrono::seconds RestartGrace{15};

using ProviderBase::NamedInterface;
using ProviderBase::NamedTransportLayer;

ZltApi::InterfacePtr MakeInterface(const NetworkInterface& network)
{
    return std::make_shared<NamedInterface>(network.name, network.name + " (" + network.address + ")");
}

} // namespace

GenICamProvider::GenICamProvider()
    : m_gigEVision(std::make_shared<NamedTransportLayer>("KTR GigE Vision")),
      m_usb3Vision(std::make_shared<NamedTransportLayer>("KTR USB3 Vision"))
{
}

GenICamProvider::~GenICamProvider()
{
    Shutdown();
}

ZltErrorType GenICamProvider::Startup(ZltApi::ProviderEvents& events)
{
    const std::lock_guard control(m_control);
    if (m_isRunning)
    {
        return ZltErrorInvalidCall;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_hasSearched = false;
        m_networks = ListNetworkInterfaces();
        m_interfaces.clear();
        std::transform(m_networks.begin(), m_networks.end(), std::back_inserter(m_interfaces), MakeInterface);
        m_interfaces.push_back(std::make_shared<NamedInterface>(UsbInterfaceId, "USB3 Vision"));
    }
    m_restarting.clear();
    m_alarm = std::make_shared<Alarm>();
    m_events = &events;
    m_isRunning = true;
    try
    {
        m_thread = std::thread([this] { Run(); });
    }
    catch (const std::system_error&)
    {
        m_isRunning = false;
        return ZltErrorResource;
    }
    return ZltErrorSuccess;
}

void GenICamProvider::Shutdown()
{
    const std::lock_guard control(m_control);
    if (!m_isRunning)
    {
        return;
    }
    m_isRunning = false;
    m_alarm->Ring();
    m_thread.join();
    std::vector<Slot> slots;
    {
        const std::lock_guard lock(m_mutex);
        slots.swap(m_slots);
    }
    for (const Slot& slot : slots)
    {
        slot.camera->Leave();
    }
    m_events = nullptr;
}

ZltErrorType GenICamProvider::GetTransportLayers(std::vector<ZltApi::TransportLayerPtr>& transportLayers)
{
    transportLayers = {m_gigEVision, m_usb3Vision};
    return ZltErrorSuccess;
}

ZltErrorType GenICamProvider::GetInterfaces(std::vector<ZltApi::InterfacePtr>& interfaces)
{
    if (!m_isRunning)
    {
        return ZltErrorNotStarted;
    }
    const std::lock_guard lock(m_mutex);
    interfaces = m_interfaces;
    return ZltErrorSuccess;
}

ZltErrorType GenICamProvider::GetCameras(std::vector<ZltApi::CameraPtr>& cameras)
{
    if (!m_isRunning)
    {
        return ZltErrorNotStarted;
    }
    std::unique_lock lock(m_mutex);
    m_searched.wait(lock, [this] { return m_hasSearched; });
    cameras.clear();
    for (const Slot& slot : m_slots)
    {
        // A camera that is on its way out stays out of the list even before that has been reported.
        if (!slot.camera->HasLeft() && !slot.camera->IsLost())
        {
            cameras.push_back(slot.camera);
        }
    }
    return ZltErrorSuccess;
}

void GenICamProvider::Run()
{
    while (m_isRunning)
    {
        try
        {
            const std::vector<FoundDevice> found = SearchDevices();
            RemoveLost();
            UpdateInterfaces();
            UpdateCameras(found);
            UpdateAccess();
        }
        catch (const std::exception&)
        {
            // Out of memory or descriptors: the next search may have them again.
        }
        {
            const std::lock_guard lock(m_mutex);
            m_hasSearched = true;
        }
        m_searched.notify_all();
        const auto next = Clock::now() + SearchPause;
        while (m_isRunning && Clock::now() < next)
        {
            m_alarm->Wait(std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()));
            RemoveLost();
        }
    }
}

void GenICamProvider::RemoveLost()
{
    std::vector<CameraPtr> lost;
    for (const Slot& slot : m_slots)
    {
        if (slot.camera->IsLost())
        {
            lost.push_back(slot.camera);
        }
    }
    std::for_each(lost.begin(), lost.end(), [this](const CameraPtr& camera) { Remove(camera); });
}

void GenICamProvider::Remove(const CameraPtr& camera)
{
    const std::shared_ptr<Connection> connection = camera->Leave();
    if (connection && connection->IsRestarting())
    {
        m_restarting[camera->Found().id] = Clock::now() + RestartGrace;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_slots.erase(
            std::find_if(m_slots.begin(), m_slots.end(), [&](const Slot& slot) { return slot.camera == camera; }));
    }
    Report({camera, ZltApi::UpdateTriggerUnplugged});
    if (connection)
    {
        connection->Release();
    }
}

void GenICamProvider::ForgetRestarts(const std::vector<FoundDevice>& found)
{
    for (auto entry = m_restarting.begin(); entry != m_restarting.end();)
    {
        const bool hasLeft = std::none_of(found.begin(), found.end(),
                                          [&](const FoundDevice& device) { return device.id == entry->first; });
        entry = hasLeft || Clock::now() >= entry->second ? m_restarting.erase(entry) : std::next(entry);
    }
}

void GenICamProvider::UpdateCameras(const std::vector<FoundDevice>& found)
{
    const auto isThere = [&](const GenICamCamera& camera)
    {
        const FoundDevice& known = camera.Found();
        if (camera.IsInUse())
        {
            // The connection itself knows best, but on USB only for as long as it asks.
            return known.technology == Technology::GigEVision || ReadControlState(known) != ControlState::Unknown;
        }
        return std::any_of(found.begin(), found.end(),
                           [&](const FoundDevice& device)
                           { return device.id == known.id && device.address == known.address; });
    };
    std::vector<CameraPtr> gone;
    for (Slot& slot : m_slots)
    {
        slot.missed = isThere(*slot.camera) ? 0 : slot.missed + 1;
        if (slot.missed >= MostMissed)
        {
            gone.push_back(slot.camera);
        }
    }
    std::for_each(gone.begin(), gone.end(), [this](const CameraPtr& camera) { Remove(camera); });

    ForgetRestarts(found);
    for (const FoundDevice& device : found)
    {
        const bool isKnown = std::any_of(m_slots.begin(), m_slots.end(),
                                         [&](const Slot& slot) { return slot.camera->Found().id == device.id; });
        if (isKnown || m_restarting.count(device.id) > 0)
        {
            continue;
        }
        const CameraPtr camera = MakeCamera(device);
        const bool isHeld = ReadControlState(device) == ControlState::Held;
        {
            const std::lock_guard lock(m_mutex);
            m_slots.push_back({camera, 0, isHeld});
        }
        Report({camera, ZltApi::UpdateTriggerPluggedIn});
    }
}

GenICamProvider::CameraPtr GenICamProvider::MakeCamera(const FoundDevice& found) const
{
    const bool isGigEVision = found.technology == Technology::GigEVision;
    const std::string name = isGigEVision ? ControlPort(found.address).ReadUserName() : std::string();
    return std::make_shared<GenICamCamera>(
        found,
        ProviderBase::CameraIdentity{found.id, name.empty() ? found.model : name, found.model, found.serialNumber,
                                     isGigEVision ? InterfaceTowards(found.address).name : UsbInterfaceId,
                                     isGigEVision ? m_gigEVision : m_usb3Vision},
        [alarm = m_alarm] { alarm->Ring(); });
}

void GenICamProvider::UpdateAccess()
{
    for (std::size_t i = 0; i < m_slots.size(); ++i)
    {
        const CameraPtr camera = m_slots[i].camera;
        const unsigned uses = camera->UseCount();
        if (camera->IsInUse())
        {
            continue;
        }
        const ControlState state = ReadControlState(camera->Found());
        const bool isHeld = state == ControlState::Held;
        // What this program does to the camera at the same time is no news.
        if (state == ControlState::Unknown || isHeld == m_slots[i].isHeldElsewhere || camera->UseCount() != uses)
        {
            continue;
        }
        m_slots[i].isHeldElsewhere = isHeld;
        Report({camera, ZltApi::UpdateTriggerStateChanged});
    }
}

void GenICamProvider::UpdateInterfaces()
{
    std::vector<NetworkInterface> networks = ListNetworkInterfaces();
    std::vector<std::pair<ZltApi::InterfacePtr, ZltApi::UpdateTriggerType>> changes;
    {
        const std::lock_guard lock(m_mutex);
        std::vector<ZltApi::InterfacePtr> interfaces;
        for (const NetworkInterface& network : networks)
        {
            const auto known = std::find(m_networks.begin(), m_networks.end(), network);
            const bool isNew = known == m_networks.end();
            interfaces.push_back(isNew ? MakeInterface(network)
                                       : m_interfaces[static_cast<std::size_t>(known - m_networks.begin())]);
            if (isNew)
            {
                changes.emplace_back(interfaces.back(), ZltApi::UpdateTriggerPluggedIn);
            }
        }
        for (std::size_t i = 0; i < m_networks.size(); ++i)
        {
            if (std::find(networks.begin(), networks.end(), m_networks[i]) == networks.end())
            {
                changes.emplace_back(m_interfaces[i], ZltApi::UpdateTriggerUnplugged);
            }
        }
        interfaces.push_back(m_interfaces.back());
        m_interfaces = std::move(interfaces);
        m_networks = std::move(networks);
    }
    for (const auto& [interface, reason] : changes)
    {
        m_events->InterfaceListChanged(interface, reason);
    }
}

// What the first search finds is no news: it is what the list begins with.
void GenICamProvider::Report(const Change& change)
{
    bool isNews = false;
    {
        const std::lock_guard lock(m_mutex);
        isNews = m_hasSearched;
    }
    if (isNews)
    {
        m_events->CameraListChanged(change.camera, change.reason);
    }
}

} // namespace GenICam
