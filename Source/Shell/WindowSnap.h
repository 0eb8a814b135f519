// Which part of a screen a dropped window takes.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace Lorvane
{

enum class SnapTarget
{
    None,
    Maximised,
    TopLeft,
    BottomLeft,
    Left,
    TopRight,
    BottomRight,
    Right
};

// cursor: relative to the top-left corner of the screen's available area, in pixels; size: that area's.
SnapTarget SnapTargetAt(QPoint cursor, QSize size);

// Whether the window's geometry is kept for the way back before it goes there; the bottom corners keep none.
bool StoresGeometry(SnapTarget target);

// area: the screen's available area, in screen coordinates. The whole area for a maximised window, an empty rectangle
// for None. An odd last row or column stays free.
QRect SnappedGeometry(SnapTarget target, const QRect& area);

} // namespace Lorvane
