// A simulated camera as the camera API hands it out.
#pragma once

#include "BasicCamera.h"
#include "Device/CameraDevice.h"

#include <memory>
#include <vector>

namespace Simulation
{

class SimulatedCamera final : public ProviderBase::BasicCamera
{
public:
    SimulatedCamera(std::shared_ptr<CameraDevice> device, ProviderBase::CameraIdentity identity);

    CameraDevice& Device() { return *m_device; }

    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>& features) override;
    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override;

    ZltErrorType GetPermittedAccess(std::uint32_t& accessMask) const override;

    ZltErrorType Open(ZltApi::AccessMode mode) override;
    ZltErrorType Close() override;
    ZltErrorType GetStreams(std::vector<ZltApi::StreamPtr>& streams) override;
    ZltErrorType ReadMemory(std::uint64_t address, std::vector<unsigned char>& data) override;
    ZltErrorType WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data) override;
    ZltErrorType StartContinuousImageAcquisition(std::uint32_t bufferCount, const ZltApi::IFrameObserverPtr& observer,
                                                 ZltApi::FrameAllocationMode allocationMode) override;
    ZltErrorType StopContinuousImageAcquisition() override;
    ZltErrorType QueueFrame(const ZltApi::FramePtr& frame) override;
    ZltErrorType ReleaseAllFrames() override;

private:
    std::shared_ptr<FeatureAccess> Access() const { return {m_device, &m_device->Features()}; }

    const std::shared_ptr<CameraDevice> m_device;
};

} // namespace Simulation
