// The colours in which defects are drawn.
#pragma once

#include "DefectInfo.h"

#include <QPen>

namespace Lorvane
{

// The pen of a defect by its origin. width: in pixels of the paint device, 0 for one pixel at every zoom.
inline QPen DefectPen(int origin, qreal width)
{
    const QColor color = origin == DefectInfo::CameraColor ? QColor(37, 171, 37, 255) : QColor(57, 130, 223, 255);
    return {color, width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

} // namespace Lorvane
