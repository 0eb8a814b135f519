// The pixels that many rectangles cover together.
#pragma once

#include "Firmware/Firmware.h"

#include <vector>

namespace Simulation
{

// Costs the sensor's size and the number of rectangles, however much they overlap.
class Coverage
{
public:
    explicit Coverage(SensorSize sensor);

    // Edges inclusive; nothing when the last lies ahead of the first. What lies outside of the sensor is cut off.
    void Add(std::uint32_t left, std::uint32_t top, std::uint32_t right, std::uint32_t bottom);
    // Each pixel once, by rows.
    std::vector<PixelPosition> Pixels() const;

private:
    int& Step(std::uint32_t x, std::uint32_t y) { return m_steps[y * std::size_t{m_sensor.width + 1} + x]; }

    const SensorSize m_sensor;
    // By how much the count of rectangles at a pixel differs from what its neighbours to the left and above tell.
    std::vector<int> m_steps;
};

} // namespace Simulation
