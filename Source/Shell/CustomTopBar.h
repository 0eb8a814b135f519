// Title bar of a window without a system frame.
#pragma once

#include <QRect>
#include <QWidget>

// Drags its window, snaps it to the edges of the screen where it is dropped, and toggles the maximised state by a
// double click. Acts on window(). GUI thread.
class CustomTopBar : public QWidget
{
    Q_OBJECT

public:
    explicit CustomTopBar(QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    // Gives the window its former size and scales the press position with it.
    void RestoreWindow();

    int m_pressX = 0; // in this widget
    int m_pressY = 0;
    bool m_snapped = false;
    QRect m_geometryBeforeSnap; // screen coordinates; invalid until something was stored
    bool m_ignoreNextMove = false;
};
