// What the factory knew of a sensor.
#pragma once

#include "Sensor/CorrectionMap.h"
#include "Sensor/SensorFaults.h"

#include <vector>

namespace Simulation
{

// The hot pixels on the fields of one colour of a chessboard: they were there from the start, the others have come
// since.
inline std::vector<PixelPosition> FactoryPixels(const std::vector<PixelFault>& faults)
{
    constexpr std::uint32_t FieldSize = 32; // pixels
    std::vector<PixelPosition> known;
    for (const PixelFault& fault : faults)
    {
        if (fault.kind == FaultKind::Hot && (fault.x / FieldSize + fault.y / FieldSize) % 2 == 0)
        {
            known.push_back({fault.x, fault.y});
        }
    }
    return known;
}

} // namespace Simulation
