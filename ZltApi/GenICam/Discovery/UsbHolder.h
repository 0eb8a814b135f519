// Whether some program holds a USB camera.
#pragma once

#include <filesystem>
#include <string>

namespace GenICam
{

// Looks, without touching the camera, whether a program has claimed an interface of the USB device with that serial
// number. The folder is the kernel's list of USB devices.
bool IsUsbDeviceHeld(const std::string& serialNumber, const std::filesystem::path& devices = "/sys/bus/usb/devices");

} // namespace GenICam
