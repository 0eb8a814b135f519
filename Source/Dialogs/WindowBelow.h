// What a translucent window lets through of the window below it.
#pragma once

#include <QObject>
#include <QPixmap>
#include <QTimer>

class QPainter;
class QWidget;

// Serves a window that lies over its parent's window as a translucent layer. Where the desktop does not blend windows
// with what is behind them, this draws a picture of the parent's window, renewed for as long as the layer is shown. GUI
// thread.
class WindowBelow : public QObject
{
    Q_OBJECT

public:
    // The layer owns this object.
    explicit WindowBelow(QWidget& layer);

    // Whether the desktop has blended the layer since it was shown last.
    bool IsBlended() const { return m_isBlended; }
    // Draws nothing where the desktop blends. To be called first in the layer's paint event.
    void Draw(QPainter& painter) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Update();

    QWidget& m_layer;
    bool m_isBlended = false;
    QPixmap m_picture;
    QTimer m_timer;
};
