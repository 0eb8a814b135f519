// A defect record: a whole sensor column.
#pragma once

#include "SensorDefect.h"

#include <cstdint>

namespace KTR::DPC
{

class ColumnDefect final : public SensorDefect
{
public:
    explicit ColumnDefect(std::uint32_t x);

    SensorDefectType GetSensorDefectType() const override;
    bool operator==(const SensorDefect& other) const override;

    std::uint32_t getX() const { return m_x; }

private:
    std::uint32_t m_x;
};

} // namespace KTR::DPC
