// The icons of command buttons on the dark panels.
#pragma once

#include <QSize>
#include <QString>

class QAbstractButton;

// Gives the button the drawing of this name; it fades where the button is disabled.
void SetCommandIcon(QAbstractButton* button, const QString& name, QSize size);
