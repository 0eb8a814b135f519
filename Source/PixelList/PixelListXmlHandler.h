// The parser of pixel list files.
#pragma once

#include "DefectInfo.h"

#include <QIODevice>
#include <QVector>

#include <optional>

// All "Pixel" elements below the root, whatever its name, in document order; values are whole numbers but otherwise not
// checked. Nothing when the bytes are no XML, nest elements absurdly deep, or when a number is missing.
//
// Coordinates, width and height are the first ones anywhere below the "Pixel", but its type is that of the "Type"
// element with the same index in the whole file.
std::optional<QVector<DefectInfo>> ParsePixelListXml(QIODevice& device);
