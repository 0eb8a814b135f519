// The white cover over the main window.
#pragma once

#include "WindowBelow.h"

#include <QWidget>

// Half transparent, where the window below shines through. GUI thread.
class WindowOverlay : public QWidget
{
public:
    WindowOverlay() : m_below(*new WindowBelow(*this)) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    WindowBelow& m_below; // a child
};
