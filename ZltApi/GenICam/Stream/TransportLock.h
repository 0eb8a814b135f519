// The mark by which a camera's description knows that a stream is running.
#pragma once

#include <arv.h>

namespace GenICam
{

// While the mark is set, features such as the image size are locked. Cameras without it lock by themselves. Both are
// called under the lock of the camera's connection and throw AravisError.
void SetTransportLocked(ArvDevice* device, bool isLocked);
bool IsTransportLocked(ArvDevice* device);

} // namespace GenICam
