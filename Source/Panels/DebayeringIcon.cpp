// Icon of the debayering button.
#include "DebayeringIcon.h"

#include <QColor>
#include <QPainter>
#include <QPixmap>

#include <array>

namespace
{

constexpr std::array<int, 3> Sizes = {16, 32, 48};

using Mosaic = std::array<QColor, 4>;

QPixmap DrawMosaic(int size, const Mosaic& colors)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const int gap = size / 16;
    const int cell = (size - 3 * gap) / 2;
    for (int index = 0; index < 4; ++index)
    {
        const int x = gap + (index % 2) * (cell + gap);
        const int y = gap + (index / 2) * (cell + gap);
        painter.fillRect(x, y, cell, cell, colors.at(static_cast<std::size_t>(index)));
    }
    return pixmap;
}

} // namespace

namespace Lorvane
{

QIcon MakeDebayeringIcon()
{
    const Mosaic color = {QColor(224, 82, 82), QColor(76, 175, 80), QColor(76, 175, 80), QColor(57, 130, 223)};
    const Mosaic gray = {QColor(125, 125, 125), QColor(190, 190, 190), QColor(190, 190, 190), QColor(95, 95, 95)};
    const Mosaic dim = {QColor(74, 75, 77), QColor(88, 89, 91), QColor(88, 89, 91), QColor(64, 65, 67)};
    QIcon icon;
    for (const int size : Sizes)
    {
        icon.addPixmap(DrawMosaic(size, color), QIcon::Normal, QIcon::Off);
        icon.addPixmap(DrawMosaic(size, gray), QIcon::Normal, QIcon::On);
        icon.addPixmap(DrawMosaic(size, dim), QIcon::Disabled, QIcon::Off);
        icon.addPixmap(DrawMosaic(size, dim), QIcon::Disabled, QIcon::On);
    }
    return icon;
}

} // namespace Lorvane
