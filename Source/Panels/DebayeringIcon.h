// Icon of the debayering button.
#pragma once

#include <QIcon>

namespace Lorvane
{

// A colour filter mosaic of 2 by 2 pixels: in colour for the unchecked button, in gray for the checked one, which
// stands for raw display, and dim when disabled.
QIcon MakeDebayeringIcon();

} // namespace Lorvane
