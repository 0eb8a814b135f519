// The kinds of sensor defects.
#pragma once

namespace KTR::DPC
{

// The numbers are fixed: pixel lists and adapters compare against them.
enum class SensorDefectType
{
    Row = 0,         // a whole sensor row
    Column = 1,      // a whole sensor column
    Pixel = 2,       // one pixel
    PixelRow = 3,    // a horizontal run of pixels inside a row
    PixelColumn = 4, // a vertical run of pixels inside a column
    Cluster = 5      // a set of pixels
};

} // namespace KTR::DPC
