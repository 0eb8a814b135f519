// A check box with a drop shadow.
#pragma once

#include <QCheckBox>

class CheckBoxWithShadow : public QCheckBox
{
    Q_OBJECT

public:
    explicit CheckBoxWithShadow(QWidget* parent = nullptr);
};
