// A feature as the camera API hands it out, with the faults that were ordered.
#pragma once

#include "BasicFeature.h"
#include "Features/FeatureGate.h"
#include "Features/FeatureMap.h"

#include <functional>
#include <memory>
#include <vector>

namespace Simulation
{

// The features of one camera or stream together with the gate that guards them, and what is to be done when a feature
// that is written down at once has changed. Shared by the camera and all handles that it has given out.
struct FeatureAccess
{
    FeatureGate& gate;
    FeatureMap features;
    std::function<void()> keep;
};

// Thread-safe.
class FeatureHandle final : public ProviderBase::BasicFeature
{
public:
    FeatureHandle(std::shared_ptr<FeatureAccess> access, FeatureNode& node);

    // The container's two operations, for cameras and streams alike.
    static ZltErrorType List(const std::shared_ptr<FeatureAccess>& access, std::vector<ZltApi::FeaturePtr>& features);
    static ZltErrorType Find(const std::shared_ptr<FeatureAccess>& access, const char* name,
                             ZltApi::FeaturePtr& feature);

    ZltErrorType RunCommand() override;

private:
    ZltErrorType Enter(const char* operation, const Action& action) const override;
    ZltErrorType Read(const Target& target) const override;
    ZltErrorType Write(const Source& source) override;

    const std::shared_ptr<FeatureAccess> m_access;
    FeatureNode& m_node;
};

} // namespace Simulation
