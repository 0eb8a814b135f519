// A defect record: a whole sensor column.
#include "ColumnDefect.h"

namespace KTR::DPC
{

ColumnDefect::ColumnDefect(std::uint32_t x) : m_x(x) {}

SensorDefectType ColumnDefect::GetSensorDefectType() const
{
    return SensorDefectType::Column;
}

bool ColumnDefect::operator==(const SensorDefect& other) const
{
    if (other.GetSensorDefectType() != GetSensorDefectType())
    {
        return false;
    }
    const auto& that = static_cast<const ColumnDefect&>(other);
    return m_x == that.m_x;
}

} // namespace KTR::DPC
