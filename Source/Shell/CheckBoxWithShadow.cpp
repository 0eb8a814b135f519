// A check box with a drop shadow.
#include "CheckBoxWithShadow.h"

#include "Shadow.h"

CheckBoxWithShadow::CheckBoxWithShadow(QWidget* parent) : QCheckBox(parent)
{
    Lorvane::AddShadow(*this);
}
