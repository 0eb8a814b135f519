// A frame with a drop shadow.
#include "FrameWithShadow.h"

#include "Shadow.h"

FrameWithShadow::FrameWithShadow(QWidget* parent) : QFrame(parent)
{
    Lorvane::AddShadow(*this);
}
