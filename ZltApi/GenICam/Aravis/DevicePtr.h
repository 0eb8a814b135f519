// Ownership of an open device.
#pragma once

#include <arv.h>

#include <memory>

namespace GenICam
{

// A device ends its threads when its last reference goes. One of these holds a reference of its own for as long as it
// reports a loss, and must not be the one that is left to end itself: so this waits until nobody else has one.
struct DeviceRelease
{
    void operator()(ArvDevice* device) const;
};

using DevicePtr = std::unique_ptr<ArvDevice, DeviceRelease>;

} // namespace GenICam
