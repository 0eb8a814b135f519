// The table of defect rectangles in the memory of the established GigE cameras.
#pragma once

#include "SensorDefect.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace KTR::DPC
{

// Cameras hold these numbers: they never change.
namespace EstablishedGigE
{
constexpr std::size_t BytesPerRecord = 8;                   // big-endian, 16 bits each: x, y, width, height
constexpr std::uint64_t END_OF_DEFINITION = 0xFFFFFFFF;     // ends the table: 8 bytes, little-endian
constexpr std::uint64_t END_OF_PACKET = 0xFFFFFFFFFFFFFFFF; // ends a packet that is not the last one
} // namespace EstablishedGigE

// The defect of a rectangle. The form has no rows and columns of its own: a whole row is a run as long as the sensor is
// wide, a whole column one as long as it is high. Throws a KTR::System::Exception for a rectangle without area. A
// cluster takes as much memory as the rectangle has pixels: a size that comes from outside is checked first.
boost::shared_ptr<SensorDefect> toSensorDefect(int x, int y, int width, int height, int sensorWidth, int sensorHeight);

// The records of the defects, one each in list order. Sizes are those of the sensor. The rectangle of a cluster reaches
// from the sensor's origin to the cluster's largest coordinates, exclusive. What reaches below 0 is left out.
std::vector<std::uint8_t> convertToBinary(const SensorDefectList& defects, std::uint32_t sensorWidth,
                                          std::uint32_t sensorHeight);
// The defects of records, without any end mark. Throws for half a record, for what toSensorDefect refuses, and for
// clusters that have more pixels together than the sensor.
SensorDefectList decodeDefectRectangles(const std::vector<std::uint8_t>& records, std::uint32_t sensorWidth,
                                        std::uint32_t sensorHeight);

// The memory that a write leaves, and its defects: records and END_OF_DEFINITION. What stands behind that is nobody's;
// a table without it is refused.
std::vector<std::uint8_t> encodeDefectTable(const SensorDefectList& defects, std::uint32_t sensorWidth,
                                            std::uint32_t sensorHeight);
SensorDefectList decodeDefectTable(const std::vector<std::uint8_t>& memory, std::uint32_t sensorWidth,
                                   std::uint32_t sensorHeight);
// END_OF_DEFINITION as it stands in memory.
std::vector<std::uint8_t> endOfDefinition();

} // namespace KTR::DPC
