// The drop shadow that lifts widgets off the image.
#pragma once

class QWidget;

namespace Lorvane
{

// The widget owns the effect; one that it had before is deleted.
void AddShadow(QWidget& widget);

} // namespace Lorvane
