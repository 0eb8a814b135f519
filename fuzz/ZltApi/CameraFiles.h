// What the targets of the defect files inside a simulated camera share.
#pragma once

#include "../FuzzTarget.h"

#include "Firmware/Firmware.h"

#include <algorithm>

using namespace Simulation;

constexpr Mirroring Mirrorings[] = {{false, false}, {true, false}, {false, true}, {true, true}};

inline void CheckInside(const std::vector<PixelPosition>& pixels, SensorSize sensor)
{
    assert(std::all_of(pixels.begin(), pixels.end(),
                       [&](const PixelPosition& pixel) { return pixel.x < sensor.width && pixel.y < sensor.height; }));
}
