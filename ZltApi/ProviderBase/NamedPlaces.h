// Where cameras are attached.
#pragma once

#include "ZltApi/Camera.h"

#include <string>

namespace ProviderBase
{

// A transport layer of this project.
class NamedTransportLayer final : public ZltApi::TransportLayer
{
public:
    explicit NamedTransportLayer(std::string name);

    ZltErrorType GetVendor(std::string& vendor) const override;
    ZltErrorType GetName(std::string& name) const override;

private:
    const std::string m_name;
};

class NamedInterface final : public ZltApi::Interface
{
public:
    NamedInterface(std::string id, std::string name);

    ZltErrorType GetID(std::string& id) const override;
    ZltErrorType GetName(std::string& name) const override;

private:
    const std::string m_id;
    const std::string m_name;
};

} // namespace ProviderBase
