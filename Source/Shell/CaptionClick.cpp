// Clicks on the captions of buttons.
#include "CaptionClick.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMouseEvent>

bool CaptionClick::eventFilter(QObject* watched, QEvent* event)
{
    const auto* const caption = qobject_cast<QLabel*>(watched);
    auto* const button = caption != nullptr ? qobject_cast<QAbstractButton*>(caption->buddy()) : nullptr;
    const bool isPress = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (button == nullptr || (!isPress && event->type() != QEvent::MouseButtonRelease))
    {
        return QObject::eventFilter(watched, event);
    }
    const auto* const mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton)
    {
        return QObject::eventFilter(watched, event);
    }
    if (!isPress && caption->rect().contains(mouse->pos()))
    {
        button->click();
    }
    return true; // a press, too, so that its release comes here
}
