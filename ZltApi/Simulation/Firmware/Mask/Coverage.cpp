// The pixels that many rectangles cover together.
#include "Firmware/Mask/Coverage.h"

#include <algorithm>

namespace Simulation
{

Coverage::Coverage(SensorSize sensor)
    : m_sensor(sensor),
      m_steps(std::size_t{sensor.width + 1} * (sensor.height + 1), 0)
{
}

void Coverage::Add(std::uint32_t left, std::uint32_t top, std::uint32_t right, std::uint32_t bottom)
{
    if (left > right || top > bottom || left >= m_sensor.width || top >= m_sensor.height)
    {
        return;
    }
    const std::uint32_t endX = std::min(right, m_sensor.width - 1) + 1;
    const std::uint32_t endY = std::min(bottom, m_sensor.height - 1) + 1;
    ++Step(left, top);
    --Step(endX, top);
    --Step(left, endY);
    ++Step(endX, endY);
}

std::vector<PixelPosition> Coverage::Pixels() const
{
    std::vector<PixelPosition> pixels;
    std::vector<int> column(m_sensor.width, 0); // sums of the steps from the top down to this row
    auto step = m_steps.begin();
    for (std::uint32_t y = 0; y < m_sensor.height; ++y, ++step)
    {
        int count = 0;
        for (std::uint32_t x = 0; x < m_sensor.width; ++x, ++step)
        {
            column[x] += *step;
            count += column[x];
            if (count > 0)
            {
                pixels.push_back({x, y});
            }
        }
    }
    return pixels;
}

} // namespace Simulation
