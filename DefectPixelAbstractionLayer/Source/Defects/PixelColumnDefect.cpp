// A defect record: a vertical run of pixels inside a column.
#include "PixelColumnDefect.h"

namespace KTR::DPC
{

PixelColumnDefect::PixelColumnDefect(std::uint32_t x, std::uint32_t y, std::uint32_t height)
    : m_x(x),
      m_y(y),
      m_height(height)
{
}

SensorDefectType PixelColumnDefect::GetSensorDefectType() const
{
    return SensorDefectType::PixelColumn;
}

bool PixelColumnDefect::operator==(const SensorDefect& other) const
{
    if (other.GetSensorDefectType() != GetSensorDefectType())
    {
        return false;
    }
    const auto& that = static_cast<const PixelColumnDefect&>(other);
    return m_x == that.m_x && m_y == that.m_y && m_height == that.m_height;
}

} // namespace KTR::DPC
