// A push button with a drop shadow.
#pragma once

#include <QPushButton>

class ButtonWithShadow : public QPushButton
{
    Q_OBJECT

public:
    explicit ButtonWithShadow(QWidget* parent = nullptr);
};
