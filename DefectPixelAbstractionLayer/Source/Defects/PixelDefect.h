// A defect record: one pixel.
#pragma once

#include "SensorDefect.h"

#include <cstdint>

namespace KTR::DPC
{

class PixelDefect final : public SensorDefect
{
public:
    PixelDefect(std::uint32_t x, std::uint32_t y);

    SensorDefectType GetSensorDefectType() const override;
    bool operator==(const SensorDefect& other) const override;

    std::uint32_t getX() const { return m_x; }
    std::uint32_t getY() const { return m_y; }

private:
    std::uint32_t m_x;
    std::uint32_t m_y;
};

} // namespace KTR::DPC
