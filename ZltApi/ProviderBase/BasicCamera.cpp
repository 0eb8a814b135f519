// A camera's identity, which can be asked for at any time.
#include "BasicCamera.h"

#include "Guarded.h"

#include <utility>

namespace ProviderBase
{

BasicCamera::BasicCamera(CameraIdentity identity) : m_identity(std::move(identity)) {}

ZltErrorType BasicCamera::GetID(std::string& id) const
{
    return Copy(m_identity.id, id);
}

ZltErrorType BasicCamera::GetName(std::string& name) const
{
    return Copy(m_identity.name, name);
}

ZltErrorType BasicCamera::GetModel(std::string& model) const
{
    return Copy(m_identity.model, model);
}

ZltErrorType BasicCamera::GetSerialNumber(std::string& serialNumber) const
{
    return Copy(m_identity.serialNumber, serialNumber);
}

ZltErrorType BasicCamera::GetInterfaceID(std::string& interfaceId) const
{
    return Copy(m_identity.interfaceId, interfaceId);
}

ZltErrorType BasicCamera::GetTransportLayer(ZltApi::TransportLayerPtr& transportLayer) const
{
    transportLayer = m_identity.transportLayer;
    return ZltErrorSuccess;
}

} // namespace ProviderBase
