// The window's keyboard shortcuts.
#pragma once

#include <QObject>

// Event filter for the main window. Keys that it knows turn into signals and go no further; all others pass.
class KeyEnterReceiver : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void SetRubberCursor();    // 3
    void SetGrabCursor();      // 2
    void SetSelectionCursor(); // 1
    void SetPlayPause();       // P
    void IncreaseZoom();       // + with any modifier; the keypad and Shift count as one
    void DecreaseZoom();       // - with any modifier

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
