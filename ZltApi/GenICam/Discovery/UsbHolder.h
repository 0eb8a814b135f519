// Whether a USB camera is there, and whether some program holds it.
#pragma once

#include "Discovery/ControlPort.h"

#include <filesystem>
#include <string>

namespace GenICam
{

// Looks, without touching the camera, for the USB3 Vision device with that serial number, and whether a program has
// claimed an interface of it. The folder is the kernel's list of USB devices; without one every camera counts as free.
ControlState ReadUsbControlState(const std::string& serialNumber,
                                 const std::filesystem::path& devices = "/sys/bus/usb/devices");

} // namespace GenICam
