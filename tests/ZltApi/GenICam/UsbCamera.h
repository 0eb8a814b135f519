// A USB3 Vision camera in software, below libusb's interface: Libusb.cpp has the functions.
#pragma once

#include "../ProviderTools.h"

#include <deque>
#include <memory>
#include <mutex>
#include <string>

namespace GenICam
{

using ProviderTest::Bytes;

constexpr const char* UsbId = "Test-0123456789AB-"; // manufacturer, identification, serial number
constexpr const char* UsbManufacturer = "Test";
constexpr const char* UsbModel = "UsbBench";
constexpr const char* UsbGuid = "0123456789AB";

// Addresses in the camera's memory, as its description has them.
constexpr std::uint64_t WidthRegister = 0x5000;
constexpr std::uint64_t HeightRegister = 0x5004;
constexpr std::uint64_t AcquisitionRegister = 0x5008;
constexpr std::uint64_t LockRegister = 0x500C;
constexpr std::uint64_t FreeMemory = 0x8000;

struct UsbBehaviour
{
    std::string description = USB_DESCRIPTION; // a file
    std::string serialNumber;                  // with one, the provider asks the kernel who holds the camera
    std::uint32_t longestCommand = 1024;       // bytes; longer packets are refused
    std::uint32_t longestAcknowledge = 1024;   // likewise, commands that ask for more
    std::uint32_t width = 640;
    std::uint16_t linePadding = 0; // bytes behind each line
    std::size_t missing = 0;       // bytes at the end of every second frame
    bool isBusy = false;           // another program has claimed it
    bool isLeftAcquiring = false;  // by a host that has gone without a word
};

// Any thread may call.
class UsbCamera
{
public:
    explicit UsbCamera(UsbBehaviour behaviour);

    static unsigned char Pixel(std::uint64_t frame, std::size_t x, std::size_t y);

    const UsbBehaviour& Behaviour() const { return m_behaviour; }
    // What the host sends to the control endpoint, and what it gets from there: empty if there is nothing.
    void Command(const Bytes& packet);
    Bytes Acknowledge();
    // What the host gets from the stream's endpoint: a leader, at most so much of an image, or a trailer; empty if
    // nothing comes for some milliseconds.
    Bytes StreamData(std::size_t length);

private:
    std::uint64_t Register(std::uint64_t address, std::size_t size) const;
    void Store(std::uint64_t address, const Bytes& data);
    std::uint16_t Execute(const Bytes& packet, bool isRead, Bytes& answer);
    void BeginFrame();

    const UsbBehaviour m_behaviour;
    std::mutex m_mutex;
    Bytes m_memory;
    Bytes m_acknowledge;
    std::deque<Bytes> m_stream; // what is left of the frame
    std::uint64_t m_frame = 0;
};

// The camera that is plugged in now, or null.
void Plug(std::shared_ptr<UsbCamera> camera);
std::shared_ptr<UsbCamera> Plugged();

} // namespace GenICam
