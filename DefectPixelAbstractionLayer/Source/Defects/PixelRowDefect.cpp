// A defect record: a horizontal run of pixels inside a row.
#include "PixelRowDefect.h"

namespace KTR::DPC
{

PixelRowDefect::PixelRowDefect(std::uint32_t x, std::uint32_t y, std::uint32_t width) : m_x(x), m_y(y), m_width(width)
{
}

SensorDefectType PixelRowDefect::GetSensorDefectType() const
{
    return SensorDefectType::PixelRow;
}

bool PixelRowDefect::operator==(const SensorDefect& other) const
{
    if (other.GetSensorDefectType() != GetSensorDefectType())
    {
        return false;
    }
    const auto& that = static_cast<const PixelRowDefect&>(other);
    return m_x == that.m_x && m_y == that.m_y && m_width == that.m_width;
}

} // namespace KTR::DPC
