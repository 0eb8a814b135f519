// An open camera, from one opening to the next closing or loss.
#include "Device/Connection.h"

#include "Discovery/DeviceSearch.h"
#include "Stream/PacketSizeAdjustment.h"

#include <utility>

namespace GenICam
{

Connection::Connection(const FoundDevice& found, std::function<void()> lost)
    : m_device(OpenDevice(found)),
      m_memory(m_device.get(), found.technology == Technology::GigEVision),
      m_lost(std::move(lost)),
      m_stream(*this),
      m_controlLoss(std::make_unique<ControlLoss>(m_device.get(), [this] { Lose(); }))
{
    if (ARV_IS_GV_DEVICE(m_device.get()) && arv_gv_device_is_controller(ARV_GV_DEVICE(m_device.get())) == FALSE)
    {
        throw AravisError(ZltErrorInvalidAccess); // lost before anybody listened
    }
    ArvGc* const description = arv_device_get_genicam(m_device.get());
    if (description == nullptr)
    {
        throw AravisError(ZltErrorResource);
    }
    AddDescribedFeatures(*description, m_memory, m_features);
    AddStreamFeatures();
}

Connection::~Connection()
{
    End();
    Release();
}

ZltErrorType Connection::End()
{
    if (m_stream.IsOwnThread())
    {
        return ZltErrorInvalidCall;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = false;
    }
    return m_stream.Stop();
}

void Connection::Release()
{
    m_controlLoss.reset();
    m_stream.Release();
    DevicePtr device;
    const std::lock_guard lock(m_mutex);
    device = std::move(m_device);
}

void Connection::Lose()
{
    if (!m_isLost.exchange(true))
    {
        m_lost();
    }
}

FeatureNode* Connection::FindFeature(const std::string& name)
{
    FeatureNode* node = m_features.Find(name);
    if (node == nullptr)
    {
        node = m_unlistedFeatures.Find(name);
    }
    if (node == nullptr)
    {
        ArvGcNode* const described = arv_device_get_feature(m_device.get(), name.c_str());
        if (std::unique_ptr<FeatureNode> unlisted = MakeNode(described, name, m_memory))
        {
            m_unlistedFeatures.Add(std::move(unlisted));
            node = m_unlistedFeatures.Find(name);
        }
    }
    return node != nullptr && node->IsImplemented() ? node : nullptr;
}

// A camera that refuses or keeps silent may have been taken by another program while this computer slept: the heartbeat
// only sees that some program has it.
void Connection::CheckControl()
{
    GError* error = nullptr;
    if (ARV_IS_GV_DEVICE(m_device.get()) && arv_gv_device_take_control(ARV_GV_DEVICE(m_device.get()), &error) == FALSE)
    {
        g_clear_error(&error);
        Lose();
    }
}

// What a host sets up for itself; a USB camera needs nothing of the kind.
void Connection::AddStreamFeatures()
{
    if (!ARV_IS_GV_DEVICE(m_device.get()))
    {
        return;
    }
    m_streamFeatures.Add(std::make_unique<PacketSizeAdjustment>(ARV_GV_DEVICE(m_device.get())));
    ArvGcNode* const packetSize = arv_device_get_feature(m_device.get(), "GevSCPSPacketSize");
    if (std::unique_ptr<FeatureNode> node = MakeNode(packetSize, "GVSPPacketSize", m_memory))
    {
        m_streamFeatures.Add(std::move(node));
    }
}

} // namespace GenICam
