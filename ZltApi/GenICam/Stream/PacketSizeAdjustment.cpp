// The stream feature that finds the best packet size.
#include "Stream/PacketSizeAdjustment.h"

#include "Aravis/Ask.h"
#include "Stream/TransportLock.h"

namespace GenICam
{

PacketSizeAdjustment::PacketSizeAdjustment(ArvGvDevice* device)
    : FeatureNode("GVSPAdjustPacketSize", ZltFeatureDataCommand),
      m_device(device)
{
}

bool PacketSizeAdjustment::IsWritable() const
{
    return !IsTransportLocked(ARV_DEVICE(m_device));
}

ZltErrorType PacketSizeAdjustment::Run()
{
    Ask(arv_gv_device_auto_packet_size, m_device);
    return ZltErrorSuccess;
}

ZltErrorType PacketSizeAdjustment::IsDone(bool& done) const
{
    done = true;
    return ZltErrorSuccess;
}

} // namespace GenICam
