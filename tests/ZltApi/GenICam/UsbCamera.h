// A USB3 Vision camera in software, below libusb's interface.
#pragma once

#include "../ProviderTools.h"

#include <optional>

namespace GenICam
{

constexpr std::uint64_t WidthRegister = 0x5000; // then height, acquisition and lock, 4 bytes each
constexpr std::uint64_t FreeMemory = 0x8000;    // 32 kB
constexpr unsigned char MemoryFill = 0xA5;

struct UsbBehaviour
{
    std::uint32_t longestCommand = 1024;     // bytes; longer ones are refused
    std::uint32_t longestAcknowledge = 1024; // bytes; commands that ask for more are refused
    std::uint32_t width = 640;               // of 480 lines
    std::uint16_t linePadding = 0;           // bytes
    std::uint32_t missing = 0;               // bytes at the end of every second frame
    bool isBusy = false;                     // another program has claimed it
};

// From now on this camera is on the bus, or none.
void Plug(const std::optional<UsbBehaviour>& camera);
// So many bytes of an image, in lines of that length.
ProviderTest::Bytes UsbImage(std::uint64_t frame, std::uint64_t size, std::uint64_t line);

} // namespace GenICam
