// The look that the dialogs share.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace Lorvane
{

constexpr QRgb WindowColour = qRgb(66, 67, 68);
constexpr QRgb PanelColour = qRgb(46, 47, 48);
constexpr QRgb BorderColour = qRgb(89, 89, 89);

// Labels, the title bar, push buttons. The property "primary" makes a button the blue one, "cross" a closing cross.
QString DialogStyleSheet();

// The icon at the size in device-independent pixels, sharp at the given ratio; null if there is no such file.
QPixmap IconPixmap(const QString& file, QSize size, qreal devicePixelRatio);

} // namespace Lorvane
