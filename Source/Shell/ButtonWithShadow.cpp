// A push button with a drop shadow.
#include "ButtonWithShadow.h"

#include "Shadow.h"

ButtonWithShadow::ButtonWithShadow(QWidget* parent) : QPushButton(parent)
{
    Lorvane::AddShadow(*this);
}
