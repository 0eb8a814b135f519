// A camera's identity, which can be asked for at any time.
#pragma once

#include "ZltApi/Camera.h"

#include <string>

namespace ProviderBase
{

struct CameraIdentity
{
    std::string id;
    std::string name;
    std::string model;
    std::string serialNumber;
    std::string interfaceId;
    ZltApi::TransportLayerPtr transportLayer;
};

class BasicCamera : public ZltApi::Camera
{
public:
    explicit BasicCamera(CameraIdentity identity);

    ZltErrorType GetID(std::string& id) const final;
    ZltErrorType GetName(std::string& name) const final;
    ZltErrorType GetModel(std::string& model) const final;
    ZltErrorType GetSerialNumber(std::string& serialNumber) const final;
    ZltErrorType GetInterfaceID(std::string& interfaceId) const final;
    ZltErrorType GetTransportLayer(ZltApi::TransportLayerPtr& transportLayer) const final;

private:
    const CameraIdentity m_identity;
};

} // namespace ProviderBase
