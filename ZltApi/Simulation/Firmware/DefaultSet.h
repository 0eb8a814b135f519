// The correction set that a camera starts with.
#pragma once

#include "Features/EnumNode.h"
#include "Features/FeatureMap.h"
#include "State/CameraState.h"

#include <string>
#include <vector>

namespace Simulation
{

// The feature "CorrectionSetDefault", which outlives a restart.
class DefaultSet
{
public:
    explicit DefaultSet(CameraState& state) : m_state(state) {}

    // The first of the sets is the one of a new camera.
    void AddFeature(FeatureMap& features, const std::vector<std::string>& sets);
    // Takes the stored choice into the feature.
    void Recall();
    std::string Current() const { return m_feature->Current(); }

private:
    CameraState& m_state;
    EnumNode* m_feature = nullptr;
};

} // namespace Simulation
