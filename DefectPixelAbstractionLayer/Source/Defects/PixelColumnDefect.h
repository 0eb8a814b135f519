// A defect record: a vertical run of pixels inside a column.
#pragma once

#include "SensorDefect.h"

#include <cstdint>

namespace KTR::DPC
{

// (x, y) is the first pixel of the run, height its number of pixels.
class PixelColumnDefect final : public SensorDefect
{
public:
    PixelColumnDefect(std::uint32_t x, std::uint32_t y, std::uint32_t height);

    SensorDefectType GetSensorDefectType() const override;
    bool operator==(const SensorDefect& other) const override;

    std::uint32_t getX() const { return m_x; }
    std::uint32_t getY() const { return m_y; }
    std::uint32_t getHeight() const { return m_height; }

private:
    std::uint32_t m_x;
    std::uint32_t m_y;
    std::uint32_t m_height;
};

} // namespace KTR::DPC
