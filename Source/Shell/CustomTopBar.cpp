// Title bar of a window without a system frame.
#include "CustomTopBar.h"

#include "WindowSnap.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>

namespace
{

QRect AvailableAreaAt(QPoint cursor)
{
    const QScreen* screen = QGuiApplication::screenAt(cursor);
    return (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

} // namespace

CustomTopBar::CustomTopBar(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_StyledBackground);
}

void CustomTopBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
    {
        QWidget::mousePressEvent(event);
        return;
    }
    m_pressX = event->x();
    m_pressY = event->y();
}

void CustomTopBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
    {
        QWidget::mouseDoubleClickEvent(event);
        return;
    }
    window()->setWindowState(window()->isMaximized() ? Qt::WindowNoState : Qt::WindowMaximized);
    m_ignoreNextMove = true;
}

void CustomTopBar::mouseMoveEvent(QMouseEvent* event)
{
    if ((event->buttons() & Qt::LeftButton) == 0)
    {
        QWidget::mouseMoveEvent(event);
        return;
    }
    if (m_ignoreNextMove)
    {
        m_ignoreNextMove = false;
        return;
    }
    const QPoint cursor = QCursor::pos();
    const QRect area = AvailableAreaAt(cursor);
    if (cursor.y() >= area.bottom())
    {
        QCursor::setPos(cursor.x(), area.bottom());
        return;
    }
    if (m_snapped || window()->isMaximized())
    {
        RestoreWindow();
    }
    // By screen coordinates: the event's own position may be older than the window's last move.
    window()->move(event->globalPos() - mapTo(window(), QPoint(m_pressX, m_pressY)));
}

void CustomTopBar::mouseReleaseEvent(QMouseEvent* event)
{
    // The release that ends a double click is no drop.
    if (event->button() != Qt::LeftButton || m_ignoreNextMove)
    {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    const QPoint cursor = QCursor::pos();
    const QRect area = AvailableAreaAt(cursor);
    const Lorvane::SnapTarget target = Lorvane::SnapTargetAt(cursor - area.topLeft(), area.size());
    if (target == Lorvane::SnapTarget::None)
    {
        return;
    }
    // A click at the edge on a window that is snapped already must not lose the way back.
    if (Lorvane::StoresGeometry(target) && !m_snapped && !window()->isMaximized())
    {
        m_geometryBeforeSnap = window()->geometry();
    }
    m_snapped = true;
    if (target == Lorvane::SnapTarget::Maximised)
    {
        window()->setWindowState(Qt::WindowMaximized);
        return;
    }
    window()->setWindowState(Qt::WindowNoState);
    window()->setGeometry(Lorvane::SnappedGeometry(target, area));
}

void CustomTopBar::RestoreWindow()
{
    const QRect restored =
        m_snapped && m_geometryBeforeSnap.isValid() ? m_geometryBeforeSnap : window()->normalGeometry();
    const int oldWidth = window()->width();
    window()->setWindowState(Qt::WindowNoState);
    window()->setGeometry(restored);
    m_pressX = m_pressX * window()->width() / qMax(1, oldWidth);
    m_snapped = false;
}
