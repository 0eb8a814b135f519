// The window's keyboard shortcuts.
#include "KeyEnterReceiver.h"

#include <QKeyEvent>

bool KeyEnterReceiver::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
    {
        return QObject::eventFilter(watched, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool modified = key->modifiers() != Qt::NoModifier;
    switch (key->key())
    {
    case Qt::Key_1:
        Q_EMIT SetSelectionCursor();
        return true;
    case Qt::Key_2:
        Q_EMIT SetGrabCursor();
        return true;
    case Qt::Key_3:
        Q_EMIT SetRubberCursor();
        return true;
    case Qt::Key_P:
        Q_EMIT SetPlayPause();
        return true;
    case Qt::Key_Plus:
        if (modified)
        {
            Q_EMIT IncreaseZoom();
            return true;
        }
        break;
    case Qt::Key_Minus:
        if (modified)
        {
            Q_EMIT DecreaseZoom();
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
