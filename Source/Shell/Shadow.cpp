// The drop shadow that lifts widgets off the image.
#include "Shadow.h"

#include <QColor>
#include <QGraphicsDropShadowEffect>
#include <QWidget>

namespace Lorvane
{

void AddShadow(QWidget& widget)
{
    auto* const shadow = new QGraphicsDropShadowEffect(&widget);
    shadow->setBlurRadius(10.0);
    shadow->setOffset(0.0, 0.0);
    shadow->setColor(QColor(40, 40, 40, 255));
    widget.setGraphicsEffect(shadow);
}

} // namespace Lorvane
