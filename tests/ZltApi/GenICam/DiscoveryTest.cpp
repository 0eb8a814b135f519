// What is asked of cameras that are not open.
#include "Bench.h"

#include "Aravis/Ask.h"
#include "Discovery/ControlPort.h"
#include "Discovery/UsbHolder.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

namespace GenICam
{

TEST(GenICamDiscovery, AnswersOfTheControlPort)
{
    constexpr const char* Address = "127.0.0.9";
    sockaddr_in own{};
    own.sin_family = AF_INET;
    own.sin_port = htons(3956);
    inet_pton(AF_INET, Address, &own.sin_addr);
    const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    ASSERT_EQ(0, ::bind(socket, reinterpret_cast<const sockaddr*>(&own), sizeof(own)));
    // Status, command, length, request, then the payload. A request of 0 stands for the one that came.
    const std::pair<Bytes, ControlState> rows[] = {
        {{0, 0, 0, 0x81, 0, 4, 0, 0, 0, 0, 0, 0}, ControlState::Free},
        {{0, 0, 0, 0x81, 0, 4, 0, 0, 0, 0, 0, 1}, ControlState::Held},
        {{0, 0, 0, 0x81, 0, 4, 0, 0, 0, 0, 0, 2}, ControlState::Held},
        {{0x80, 6, 0, 0x81, 0, 0, 0, 0}, ControlState::Held},                   // not even to be read
        {{0x80, 1, 0, 0x81, 0, 4, 0, 0, 0, 0, 0, 2}, ControlState::Unknown},    // does not know the register
        {{0, 0, 0, 0x81, 0, 4, 0, 0, 0, 0}, ControlState::Unknown},             // cut off
        {{0, 0, 0, 0x81, 0xFF, 0xFF, 0, 0, 0, 0, 0, 2}, ControlState::Held},    // says it is longer
        {{0, 0, 0, 0x81, 0, 4, 0x55, 0x55, 0, 0, 0, 2}, ControlState::Unknown}, // to another request
        {{0, 0, 0, 0x85, 0, 4, 0, 0, 0, 0, 0, 2}, ControlState::Unknown},       // to another command
        {{0, 0}, ControlState::Unknown},
        {{}, ControlState::Unknown}};
    for (const auto& [sent, state] : rows)
    {
        std::atomic<bool> finished{false};
        std::thread camera(
            [&, &sent = sent]
            {
                unsigned char request[64];
                sockaddr_in host{};
                socklen_t size = sizeof(host);
                while (!finished)
                {
                    if (::recvfrom(socket, request, sizeof(request), MSG_DONTWAIT, reinterpret_cast<sockaddr*>(&host),
                                   &size) < 12)
                    {
                        std::this_thread::sleep_for(std::chrono::milliseconds(1));
                        continue;
                    }
                    Bytes answer = sent;
                    if (answer.size() >= 8 && answer[6] == 0)
                    {
                        std::copy_n(request + 6, 2, answer.begin() + 6);
                    }
                    ::sendto(socket, answer.data(), answer.size(), 0, reinterpret_cast<const sockaddr*>(&host), size);
                }
            });
        EXPECT_EQ(state, ControlPort(Address).ReadControlState()) << testing::PrintToString(sent);
        finished = true;
        camera.join();
    }
    ::close(socket);
    EXPECT_EQ(ControlState::Unknown, ControlPort(Address).ReadControlState()) << "nobody there";
    EXPECT_EQ(ControlState::Unknown, ControlPort("not an address").ReadControlState());
}

TEST(GenICamDiscovery, HolderOfAUsbCamera)
{
    const std::filesystem::path root =
        std::filesystem::temp_directory_path() / ("usb-devices-" + std::to_string(::getpid()));
    // Device, serial number, subclass and driver of its interface.
    const char* const rows[][4] = {{"2-1", "S1", "05", "usb"},
                                   {"2-10", "S10", "05", "usbfs"},
                                   {"1-1", "S10", "05", "usb"},
                                   {"1-2", "S1", "02", "usbfs"},
                                   {"1-3", "stick", "06", "usbfs"}};
    for (const auto& [device, serialNumber, subClass, driver] : rows)
    {
        const std::filesystem::path interface = root / (std::string(device) + ":1.0");
        std::filesystem::create_directories(root / device);
        std::filesystem::create_directories(interface);
        std::ofstream(root / device / "serial") << serialNumber << "\n";
        std::ofstream(interface / "bInterfaceClass") << "ef\n";
        std::ofstream(interface / "bInterfaceSubClass") << subClass << "\n";
        std::filesystem::create_symlink(std::string("/sys/bus/usb/drivers/") + driver, interface / "driver");
    }
    EXPECT_EQ(ControlState::Held, ReadUsbControlState("S10", root)) << "one of two";
    EXPECT_EQ(ControlState::Free, ReadUsbControlState("S1", root)) << "the other device is no camera";
    EXPECT_EQ(ControlState::Unknown, ReadUsbControlState("stick", root));
    EXPECT_EQ(ControlState::Unknown, ReadUsbControlState("S3", root)) << "pulled out";
    EXPECT_EQ(ControlState::Free, ReadUsbControlState("", root)) << "has no number";
    EXPECT_EQ(ControlState::Free, ReadUsbControlState("S10", root / "nowhere"));
    std::filesystem::remove_all(root);
}

} // namespace GenICam
