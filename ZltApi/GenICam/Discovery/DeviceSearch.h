// The search for cameras on networks and USB.
#pragma once

#include "Aravis/DevicePtr.h"
#include "Discovery/ControlPort.h"
#include "Discovery/FoundDevice.h"

#include <arv.h>

#include <vector>

namespace GenICam
{

// All cameras that answer now, those of networks first. Takes about a second: that long cameras have time to answer.
// One thread at a time.
std::vector<FoundDevice> SearchDevices();

// Opens a camera that a search has found. Neither waits for a search nor makes one. Throws AravisError:
// ZltErrorInvalidAccess when a program controls the camera, ZltErrorNotFound when it does not answer. Thread-safe.
DevicePtr OpenDevice(const FoundDevice& device);

// Whether a program controls the camera now. Thread-safe.
ControlState ReadControlState(const FoundDevice& device);

} // namespace GenICam
