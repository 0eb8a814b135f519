// A feature as the camera API hands it out.
#pragma once

#include "BasicFeature.h"
#include "Features/FeatureMap.h"

#include <memory>
#include <vector>

namespace GenICam
{

class Connection;

// Thread-safe. Keeps the connection alive, and with it the node, though not open.
class FeatureHandle final : public ProviderBase::BasicFeature
{
public:
    FeatureHandle(std::shared_ptr<Connection> connection, FeatureNode& node);

    // All that a map of the connection holds and the camera implements.
    static ZltErrorType List(const std::shared_ptr<Connection>& connection, const FeatureMap& map,
                             std::vector<ZltApi::FeaturePtr>& features);

    ZltErrorType RunCommand() override;

private:
    ZltErrorType Enter(const char* operation, const Action& action) const override;
    ZltErrorType Restart();
    ZltErrorType WaitUntilDone() const;

    const std::shared_ptr<Connection> m_connection;
};

} // namespace GenICam
