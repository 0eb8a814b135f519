// One look-up of a camera feature by name.
#pragma once

#include "ZltApi/Feature.h"
#include "ZltApi/Types.h"

#include <memory>
#include <string>

// Made for a single call, so that no handle of the camera API outlives it.
class FeatureWrapper
{
public:
    // The camera must not be empty. Throws a KTR::FeatureHelper::Exception if it has no such feature.
    FeatureWrapper(const std::shared_ptr<ZltApi::Camera>& camera, const std::string& name);

    const std::shared_ptr<ZltApi::Feature>& operator->() const { return m_feature; }

private:
    std::shared_ptr<ZltApi::Feature> m_feature;
};
