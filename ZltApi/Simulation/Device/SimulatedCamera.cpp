// From the camera API's calls to the inside of a simulated camera.
#include "Device/SimulatedCamera.h"

#include "Guarded.h"

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

using ProviderBase::Guarded;

} // namespace

SimulatedCamera::SimulatedCamera(std::shared_ptr<CameraDevice> device, ProviderBase::CameraIdentity identity)
    : BasicCamera(std::move(identity)),
      m_device(std::move(device))
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
