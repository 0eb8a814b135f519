// Events as a user's mouse would cause them, sent to one widget.
#pragma once

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

inline void SendMouse(QWidget& widget, QEvent::Type type, QPointF position, Qt::MouseButton button,
                      Qt::MouseButtons buttons)
{
    const QPointF global = position + widget.mapToGlobal(QPoint(0, 0));
    QMouseEvent event(type, position, position, global, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

inline void DragMouse(QWidget& widget, QPointF from, QPointF to)
{
    SendMouse(widget, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
}

// Goes on to the parents when the widget does not take it.
inline void SendWheel(QWidget& widget, QPoint position, int delta)
{
    QWheelEvent event(position, widget.mapToGlobal(position), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

// Opens the menu and chooses the action with this object name.
inline void OpenContextMenu(QWidget& widget, QPoint position, const QString& actionName)
{
    QTimer::singleShot(0, &widget,
                       [&actionName]
                       {
                           auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                           menu->findChild<QAction*>(actionName)->trigger();
                           menu->close();
                       });
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, widget.mapToGlobal(position));
    QApplication::sendEvent(&widget, &event);
}
