// A defect record: one pixel.
#include "PixelDefect.h"

namespace KTR::DPC
{

PixelDefect::PixelDefect(std::uint32_t x, std::uint32_t y) : m_x(x), m_y(y) {}

SensorDefectType PixelDefect::GetSensorDefectType() const
{
    return SensorDefectType::Pixel;
}

bool PixelDefect::operator==(const SensorDefect& other) const
{
    if (other.GetSensorDefectType() != GetSensorDefectType())
    {
        return false;
    }
    const auto& that = static_cast<const PixelDefect&>(other);
    return m_x == that.m_x && m_y == that.m_y;
}

} // namespace KTR::DPC
