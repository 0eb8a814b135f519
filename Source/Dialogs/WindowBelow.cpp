// What a translucent window lets through of the window below it.
#include "WindowBelow.h"

#include <QEvent>
#include <QPainter>
#include <QWidget>
#include <QX11Info>

namespace
{

constexpr int RenewalPeriod = 100; // milliseconds

} // namespace

WindowBelow::WindowBelow(QWidget& layer) : QObject(&layer), m_layer(layer)
{
    layer.installEventFilter(this);
    connect(&m_timer, &QTimer::timeout, this, &WindowBelow::Update);
}

void WindowBelow::Draw(QPainter& painter) const
{
    painter.drawPixmap(0, 0, m_picture);
}

bool WindowBelow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show)
    {
        m_isBlended = QX11Info::isPlatformX11() && QX11Info::isCompositingManagerRunning();
        m_picture = QPixmap();
        if (!m_isBlended)
        {
            Update();
            m_timer.start(RenewalPeriod);
        }
    }
    else if (event->type() == QEvent::Hide)
    {
        m_timer.stop();
    }
    return QObject::eventFilter(watched, event);
}

void WindowBelow::Update()
{
    if (m_layer.parentWidget() != nullptr)
    {
        m_picture = m_layer.parentWidget()->window()->grab();
        m_layer.update();
    }
}
