// The column masking table in the memory of the established GigE cameras.
#pragma once

#include "SensorDefect.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace KTR::DPC
{

// Cameras hold these numbers: they never change.
namespace LoadDefects
{
constexpr std::size_t BytesPerEntry = 6; // big-endian, 16 bits each: column, first row, last row
constexpr std::size_t MostEntries = 64;
} // namespace LoadDefects

// A defect as a stretch of one column, rows inclusive, cut to 16 bits. Throws a KTR::System::Exception for a kind that
// is no such stretch.
void convert2_x_yStart_yStop(const boost::shared_ptr<SensorDefect>& defect, std::uint32_t sensorHeight,
                             std::uint16_t& x, std::uint16_t& yStart, std::uint16_t& yStop);

// Whether all defects are stretches of columns inside of the sensor, and none has another one beside it in the next
// column. Those in one column may overlap.
bool isColumnMask(const SensorDefectList& defects, std::uint32_t sensorWidth, std::uint32_t sensorHeight);

// The table's entries, one for each defect in list order.
std::vector<std::uint8_t> encodeColumnMask(const SensorDefectList& defects, std::uint32_t sensorHeight);
// Bytes behind the last whole entry are left alone. Throws for a stretch that ends before it starts, and for more
// entries than a table has.
SensorDefectList decodeColumnMask(const std::vector<std::uint8_t>& table, std::uint32_t sensorHeight);

} // namespace KTR::DPC
