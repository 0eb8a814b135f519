// Non-uniformity correction: a sensor whose columns differ, and the datasets that even them out.
#pragma once

#include "Features/EnumNode.h"
#include "Features/FeatureMap.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace Simulation
{

// Each dataset was made for one exposure time; the mode "Auto" takes the one next to the present time. The camera's
// lock is held around every call but Distort.
class NonuniformityCorrection
{
public:
    // The sensor's width in pixels; the exposure time is asked for in microseconds.
    NonuniformityCorrection(std::uint32_t width, std::uint64_t seed, std::function<double()> exposureUs);

    void AddFeatures(FeatureMap& features);

    // Whether frames show the sensor as it is.
    bool IsOff() const { return m_mode->Current() == "Off"; }
    // Gives each column its own sensitivity. May be called by any thread.
    void Distort(std::vector<std::uint16_t>& raw) const;

private:
    std::size_t DatasetInUse() const;
    std::string Description() const;

    const std::function<double()> m_exposureUs;
    std::vector<std::uint16_t> m_columnGains;
    EnumNode* m_mode = nullptr;
};

} // namespace Simulation
