// A simulated camera as the camera API hands it out.
#pragma once

#include "Device/CameraDevice.h"
#include "ZltApi/Camera.h"

#include <memory>
#include <string>
#include <vector>

namespace Simulation
{

class SimulatedCamera final : public ZltApi::Camera
{
public:
    SimulatedCamera(std::shared_ptr<CameraDevice> device, ZltApi::TransportLayerPtr transportLayer,
                    std::string interfaceId);

    CameraDevice& Device() { return *m_device; }

    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>& features) override;
    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override;

    ZltErrorType GetID(std::string& id) const override;
    ZltErrorType GetName(std::string& name) const override;
    ZltErrorType GetModel(std::string& model) const override;
    ZltErrorType GetSerialNumber(std::string& serialNumber) const override;
    ZltErrorType GetInterfaceID(std::string& interfaceId) const override;
    ZltErrorType GetTransportLayer(ZltApi::TransportLayerPtr& transportLayer) const override;
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
    const ZltApi::TransportLayerPtr m_transportLayer;
    const std::string m_interfaceId;
};

} // namespace Simulation
