// The automatic detection as the batch tool runs it.
#pragma once

#include "DefectInfo.h"

#include <QImage>
#include <QVector>

#include <vector>

namespace CommandLine
{

// Grey value of 255 from which on a pixel of a dark frame is a defect, unless something else is asked for.
constexpr int DefaultThreshold = 40;

// The defects as new entries of a pixel list. width and height are the lengths that make a run a whole row or column,
// types the kinds that can be stored.
QVector<DefectInfo> DetectInFrame(const QImage& frame, int threshold, int width, int height,
                                  const std::vector<int>& types);

} // namespace CommandLine
