// Which part of a screen a dropped window takes.
#include "WindowSnap.h"

namespace Lorvane
{
namespace
{

constexpr int EdgeWidth = 10; // pixels

} // namespace

SnapTarget SnapTargetAt(QPoint cursor, QSize size)
{
    const int x = cursor.x();
    const int y = cursor.y();
    const bool atTop = y >= 0 && y < EdgeWidth;
    const bool atBottom = y >= size.height() - EdgeWidth && y <= size.height();
    const bool besideTopLine = y != 0 && y < size.height();
    const bool atLeft = x >= 0 && x < EdgeWidth;
    const bool atRight = x >= size.width() - EdgeWidth && x <= size.width();

    if (y == 0 && x != 0 && x + 1 < size.width())
    {
        return SnapTarget::Maximised;
    }
    if (atLeft)
    {
        return atTop           ? SnapTarget::TopLeft
               : atBottom      ? SnapTarget::BottomLeft
               : besideTopLine ? SnapTarget::Left
                               : SnapTarget::None;
    }
    if (atRight)
    {
        return atTop           ? SnapTarget::TopRight
               : atBottom      ? SnapTarget::BottomRight
               : besideTopLine ? SnapTarget::Right
                               : SnapTarget::None;
    }
    return SnapTarget::None;
}

bool StoresGeometry(SnapTarget target)
{
    return target != SnapTarget::None && target != SnapTarget::BottomLeft && target != SnapTarget::BottomRight;
}

QRect SnappedGeometry(SnapTarget target, const QRect& area)
{
    const QSize half(area.width() / 2, area.height());
    const QSize quarter(half.width(), area.height() / 2);
    const QPoint right(half.width(), 0);
    const QPoint bottom(0, quarter.height());
    switch (target)
    {
    case SnapTarget::Maximised:
        return area;
    case SnapTarget::TopLeft:
        return {area.topLeft(), quarter};
    case SnapTarget::BottomLeft:
        return {area.topLeft() + bottom, quarter};
    case SnapTarget::Left:
        return {area.topLeft(), half};
    case SnapTarget::TopRight:
        return {area.topLeft() + right, quarter};
    case SnapTarget::BottomRight:
        return {area.topLeft() + right + bottom, quarter};
    case SnapTarget::Right:
        return {area.topLeft() + right, half};
    case SnapTarget::None:
        break;
    }
    return {};
}

} // namespace Lorvane
