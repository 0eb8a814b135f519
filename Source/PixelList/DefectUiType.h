// The kinds of defects in the pixel list.
#pragma once

#include "SensorDefectType.h"

// Plain numbers, because pixel list files, dialogs and the image view hold them: the values may never change.
namespace DefectUiType
{

constexpr int SinglePixel = 0;
constexpr int PixelColumn = 1; // part of a column
constexpr int PixelRow = 2;    // part of a row
constexpr int Cluster = 3;     // rectangle
constexpr int Column = 4;      // a whole column
constexpr int Row = 5;         // a whole row

// The kind's English name for TreeModel to translate; "None" for any other number.
const char* Text(int type);

int FromSensorDefectType(KTR::DPC::SensorDefectType type);

} // namespace DefectUiType
