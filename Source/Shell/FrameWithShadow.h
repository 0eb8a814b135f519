// A frame with a drop shadow.
#pragma once

#include <QFrame>

class FrameWithShadow : public QFrame
{
    Q_OBJECT

public:
    explicit FrameWithShadow(QWidget* parent = nullptr);
};
