// A USB3 Vision camera in software, below libusb's interface.
#pragma once

#include <cstdint>
#include <optional>

namespace GenICam
{

constexpr std::uint64_t WidthRegister = 0x5000;
constexpr std::uint64_t AcquisitionRegister = 0x5008;
constexpr std::uint64_t FreeMemory = 0x8000; // as much as anybody needs

struct UsbBehaviour
{
    std::uint32_t longestCommand = 1024;     // bytes; longer ones are refused
    std::uint32_t longestAcknowledge = 1024; // bytes; commands that ask for more are refused
    std::uint32_t width = 640;               // of 480 lines
    std::uint16_t linePadding = 0;           // bytes
    std::uint32_t missing = 0;               // bytes at the end of every second frame
    bool isBusy = false;                     // another program has claimed it
    bool isLeftAcquiring = false;            // by a host that has gone without a word
};

// From now on this camera is on the bus, or none.
void Plug(const std::optional<UsbBehaviour>& camera);
unsigned char UsbPixel(std::uint64_t frame, std::uint64_t x, std::uint64_t y);

} // namespace GenICam
