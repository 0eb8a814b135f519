// What all records of a sensor defect have in common.
#pragma once

#include "SensorDefectType.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KTR::DPC
{

// A value object in sensor coordinates: zero-based, x counts columns from the left, y counts rows from the top. There
// is no virtual destructor: defects are held by a boost::shared_ptr made from the concrete type.
class SensorDefect
{
public:
    virtual SensorDefectType GetSensorDefectType() const = 0;
    // True for the same kind with the same fields.
    virtual bool operator==(const SensorDefect& other) const = 0;

protected:
    SensorDefect() = default;
    SensorDefect(const SensorDefect&) = default;
    SensorDefect& operator=(const SensorDefect&) = default;
    ~SensorDefect() = default;
};

// The unit that adapters read and write.
using SensorDefectList = std::vector<boost::shared_ptr<SensorDefect>>;

} // namespace KTR::DPC
