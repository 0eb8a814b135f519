// The white cover over the main window.
#include "WindowOverlay.h"

#include <QPainter>

namespace
{

constexpr int Half = 128;

} // namespace

// Where the desktop blends, the opacity of the window as a whole does the rest.
void WindowOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_below.Draw(painter);
    painter.fillRect(rect(), QColor(255, 255, 255, m_below.IsBlended() ? 255 : Half));
}
