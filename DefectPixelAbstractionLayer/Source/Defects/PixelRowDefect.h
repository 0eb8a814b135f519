// A defect record: a horizontal run of pixels inside a row.
#pragma once

#include "SensorDefect.h"

#include <cstdint>

namespace KTR::DPC
{

// (x, y) is the first pixel of the run, width its number of pixels.
class PixelRowDefect final : public SensorDefect
{
public:
    PixelRowDefect(std::uint32_t x, std::uint32_t y, std::uint32_t width);

    SensorDefectType GetSensorDefectType() const override;
    bool operator==(const SensorDefect& other) const override;

    std::uint32_t getX() const { return m_x; }
    std::uint32_t getY() const { return m_y; }
    std::uint32_t getWidth() const { return m_width; }

private:
    std::uint32_t m_x;
    std::uint32_t m_y;
    std::uint32_t m_width;
};

} // namespace KTR::DPC
