// Where cameras are attached.
#include "NamedPlaces.h"

#include "Guarded.h"

#include <utility>

namespace ProviderBase
{

NamedTransportLayer::NamedTransportLayer(std::string name) : m_name(std::move(name)) {}

ZltErrorType NamedTransportLayer::GetVendor(std::string& vendor) const
{
    return Copy(std::string("Korvath"), vendor);
}

ZltErrorType NamedTransportLayer::GetName(std::string& name) const
{
    return Copy(m_name, name);
}

NamedInterface::NamedInterface(std::string id, std::string name) : m_id(std::move(id)), m_name(std::move(name)) {}

ZltErrorType NamedInterface::GetID(std::string& id) const
{
    return Copy(m_id, id);
}

ZltErrorType NamedInterface::GetName(std::string& name) const
{
    return Copy(m_name, name);
}

} // namespace ProviderBase
