// A defect record: a whole sensor row.
#include "RowDefect.h"

namespace KTR::DPC
{

RowDefect::RowDefect(std::uint32_t y) : m_y(y) {}

SensorDefectType RowDefect::GetSensorDefectType() const
{
    return SensorDefectType::Row;
}

bool RowDefect::operator==(const SensorDefect& other) const
{
    if (other.GetSensorDefectType() != GetSensorDefectType())
    {
        return false;
    }
    const auto& that = static_cast<const RowDefect&>(other);
    return m_y == that.m_y;
}

} // namespace KTR::DPC
