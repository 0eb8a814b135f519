// What the tests of the simulated sensor share.
#pragma once

#include "Sensor.h"

#include <string>
#include <vector>

namespace Simulation
{

using Bytes = std::vector<unsigned char>;
using Counts = std::vector<std::uint16_t>;

inline Counts Expose(Sensor& sensor, const ExposureSettings& settings)
{
    Counts raw;
    sensor.Expose(settings, raw);
    return raw;
}

} // namespace Simulation
