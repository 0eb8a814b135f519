// From the camera API's calls to the inside of a simulated camera.
#include "Device/SimulatedCamera.h"

#include <utility>

namespace Simulation
{

namespace
{

class SimulatedStream final : public ZltApi::Stream
{
public:
    explicit SimulatedStream(std::shared_ptr<FeatureAccess> access) : m_access(std::move(access)) {}

    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>& features) override
    {
        return FeatureHandle::List(m_access, features);
    }
    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override
    {
        return FeatureHandle::Find(m_access, name, feature);
    }

private:
    const std::shared_ptr<FeatureAccess> m_access;
};

// Nothing thrown may leave the provider.
template <typename Action> ZltErrorType Guarded(const Action& action) noexcept
{
    try
    {
        return action();
    }
    catch (const std::exception&)
    {
        return ZltErrorUnexpectedFault;
    }
}

} // namespace

SimulatedCamera::SimulatedCamera(std::shared_ptr<CameraDevice> device, ZltApi::TransportLayerPtr transportLayer,
                                 std::string interfaceId)
    : m_device(std::move(device)),
      m_transportLayer(std::move(transportLayer)),
      m_interfaceId(std::move(interfaceId))
{
}

ZltErrorType SimulatedCamera::GetFeatures(std::vector<ZltApi::FeaturePtr>& features)
{
    return FeatureHandle::List(Access(), features);
}

ZltErrorType SimulatedCamera::GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature)
{
    return FeatureHandle::Find(Access(), name, feature);
}

ZltErrorType SimulatedCamera::GetID(std::string& id) const
{
    id = m_device->Config().id;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedCamera::GetName(std::string& name) const
{
    name = m_device->Config().name;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedCamera::GetModel(std::string& model) const
{
    model = m_device->Config().model;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedCamera::GetSerialNumber(std::string& serialNumber) const
{
    serialNumber = m_device->Config().serial;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedCamera::GetInterfaceID(std::string& interfaceId) const
{
    interfaceId = m_interfaceId;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedCamera::GetTransportLayer(ZltApi::TransportLayerPtr& transportLayer) const
{
    transportLayer = m_transportLayer;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedCamera::GetPermittedAccess(std::uint32_t& accessMask) const
{
    accessMask = m_device->IsPresent() && !m_device->IsHeld() ? ZltApi::AccessModeFull : ZltApi::AccessModeNone;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedCamera::Open(ZltApi::AccessMode mode)
{
    return mode == ZltApi::AccessModeFull ? Guarded([&] { return m_device->Open(); }) : ZltErrorNotSupported;
}

ZltErrorType SimulatedCamera::Close()
{
    return Guarded([&] { return m_device->Close(); });
}

ZltErrorType SimulatedCamera::GetStreams(std::vector<ZltApi::StreamPtr>& streams)
{
    const auto access = std::shared_ptr<FeatureAccess>(m_device, &m_device->StreamFeatures());
    return access->gate.Run("GetStreams", {},
                            [&](const FaultEffect&)
                            {
                                streams.clear();
                                if (m_device->Config().stream)
                                {
                                    streams.push_back(std::make_shared<SimulatedStream>(access));
                                }
                                return ZltErrorSuccess;
                            });
}

ZltErrorType SimulatedCamera::ReadMemory(std::uint64_t address, std::vector<unsigned char>& data)
{
    return m_device->ReadMemory(address, data);
}

ZltErrorType SimulatedCamera::WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data)
{
    return m_device->WriteMemory(address, data);
}

ZltErrorType SimulatedCamera::StartContinuousImageAcquisition(std::uint32_t bufferCount,
                                                              const ZltApi::IFrameObserverPtr& observer,
                                                              ZltApi::FrameAllocationMode allocationMode)
{
    return allocationMode == ZltApi::FrameAllocationAnnounced
               ? Guarded([&] { return m_device->StartStream(bufferCount, observer); })
               : ZltErrorNotSupported;
}

ZltErrorType SimulatedCamera::StopContinuousImageAcquisition()
{
    return Guarded([&] { return m_device->StopStream(); });
}

ZltErrorType SimulatedCamera::QueueFrame(const ZltApi::FramePtr& frame)
{
    return Guarded([&] { return m_device->Stream().Queue(frame); });
}

ZltErrorType SimulatedCamera::ReleaseAllFrames()
{
    return Guarded([&] { return m_device->Stream().ReleaseAll(); });
}

} // namespace Simulation
