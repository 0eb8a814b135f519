// A defect record: a whole sensor row.
#pragma once

#include "SensorDefect.h"

#include <cstdint>

namespace KTR::DPC
{

class RowDefect final : public SensorDefect
{
public:
    explicit RowDefect(std::uint32_t y);

    SensorDefectType GetSensorDefectType() const override;
    bool operator==(const SensorDefect& other) const override;

    std::uint32_t getY() const { return m_y; }

private:
    std::uint32_t m_y;
};

} // namespace KTR::DPC
