// The flash camera: its correction, and the states of its flash.
#include "Firmware/Flash/FlashFile.h"
#include "TestRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <utility>

namespace Simulation
{

namespace
{

constexpr SensorSize Size{64, 48};

// The talk of a host.
struct Host
{
    explicit Host(ZltApi::CameraPtr opened) : camera(std::move(opened)) {}
    std::uint32_t Read(std::uint64_t address)
    {
        Bytes bytes(4);
        EXPECT_EQ(ZltErrorSuccess, camera->ReadMemory(address, bytes));
        return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
    }
    ZltErrorType Write(std::uint64_t address, std::uint32_t value)
    {
        Bytes bytes(4);
        std::generate_n(bytes.rbegin(), 4,
                        [&] { return static_cast<unsigned char>(std::exchange(value, value >> 8)); });
        return camera->WriteMemory(address, bytes);
    }
    std::uint32_t Status() { return Read(0x1A0B0); }
    // The status after that one.
    std::uint32_t After(std::uint32_t busy)
    {
        BecomesTrue([&] { return Status() != busy; });
        return Status();
    }
    ZltErrorType Command(std::uint32_t command)
    {
        EXPECT_EQ(ZltErrorSuccess, Write(0x1A0B4, 1532604));
        return Write(0x1A0B4, command);
    }
    ZltErrorType Send(std::size_t offset, const FileBytes& file)
    {
        Bytes packet(4 + std::min<std::size_t>(500, file.size() - offset));
        packet[2] = static_cast<unsigned char>(offset >> 8);
        packet[3] = static_cast<unsigned char>(offset);
        std::copy_n(file.begin() + std::ptrdiff_t(offset), packet.size() - 4, packet.begin() + 4);
        return camera->WriteMemory(0x1A100, packet);
    }
    std::uint32_t Upload(const FileBytes& file)
    {
        Write(0x1A0AC, static_cast<std::uint32_t>(file.size()));
        EXPECT_EQ(ZltErrorSuccess, Command(2));
        for (std::size_t offset = 0; offset < file.size(); offset += 500)
        {
            EXPECT_EQ(ZltErrorSuccess, Send(offset, file));
        }
        return After(Processing);
    }
    std::uint32_t Erase()
    {
        EXPECT_EQ(ZltErrorSuccess, Command(5));
        return After(Erasing);
    }

    static constexpr std::uint32_t Erased = 0xFFFFFFFE, Processing = 0xFFFFFFC0, Uploading = 0xFFFFFE00,
                                   Invalid = 0xFFFFFC00, Valid = 0xFFFFF800, ProcessingError = 0xFFFFF000,
                                   Erasing = 0xFE000000, EraseError = 0xFC000000, Unavailable = 0xE0000000;
    ZltApi::CameraPtr camera;
};

constexpr const char* Rig = R"({"firmware": "flash", "reverseX": false, "reverseY": false, "flashTime": 40)";

} // namespace

TEST(FlashCamera, TakesTheNeighboursThatTheFileNames)
{
    TestRig rig(std::string(Rig) + R"(, "longestRun": 8})");
    Host host(rig.Opened());
    EXPECT_EQ(ZltErrorSuccess, Set(host.camera, "DefectMaskEnable", false));
    const auto hot = BrightPixels(GrabDark(host.camera));
    FileBytes file = EncodeFlashFile(hot, Size, ColorFilter::Mono);
    for (const bool isGood : {true, false})
    {
        if (!isGood) // a mask that names a hot neighbour
        {
            const auto pair = std::adjacent_find(hot.begin(), hot.end(),
                                                 [](auto& a, auto& b) { return a.y == b.y && a.x + 1 == b.x; });
            const auto control = file.begin() + 4096 + 8 * (pair - hot.begin()) + 4;
            std::copy_n(FileBytes{8, 0xF0}.begin(), 2, control);
        }
        host.Erase();
        EXPECT_EQ(Host::Valid, host.Upload(file));
        host = Host(rig.Restarted(host.camera));
        EXPECT_EQ(ZltErrorSuccess, Set(host.camera, "DefectMaskEnable", true));
        EXPECT_EQ(BrightPixels(GrabDark(host.camera)).empty(), isGood);
    }
}

TEST(FlashCamera, WalksThroughItsStates)
{
    TestRig rig(std::string(Rig) + R"(, "faults": [
        {"operation": "FlashErase", "call": 3, "code": -1}, {"operation": "FlashProgram", "call": 2, "code": -1},
        {"operation": "FlashErase", "call": 5, "hang": true}]})");
    Host host(rig.Opened());
    FileBytes file = EncodeFlashFile({{3, 7}}, Size, ColorFilter::Mono);
    EXPECT_EQ(8192U, host.Read(0x1A0A0));
    EXPECT_EQ(Host::Valid, host.Status()) << "as delivered";
    EXPECT_EQ(ZltErrorInvalidAccess, host.Write(0x1A0B4, 5)) << "without the code";
    host.Write(0x1A0BC, 103100);
    EXPECT_EQ(ZltErrorInvalidAccess, host.Command(5)) << "the factory's";
    host.Write(0x1A0BC, 7);
    EXPECT_EQ(Host::Unavailable, host.Status());
    host.Write(0x1A0BC, 102101);
    EXPECT_EQ(Host::Erased, host.Erase());
    EXPECT_EQ(ZltErrorInvalidAccess, host.Send(0, file)) << "nothing was announced";
    EXPECT_EQ(Host::Valid, host.Upload(file));
    EXPECT_EQ(file.size(), host.Read(0x1A0A4));
    Bytes packet(504);
    for (const std::size_t offset : {0U, 500U})
    {
        EXPECT_EQ(ZltErrorSuccess, host.camera->ReadMemory(0x1AA00, packet));
        EXPECT_TRUE(std::equal(packet.begin() + 4, packet.end(), file.begin() + std::ptrdiff_t(offset)));
        EXPECT_EQ(offset, std::size_t{packet[2]} << 8 | packet[3]);
    }
    host.Write(0x1A0A8, 3700);
    EXPECT_EQ(ZltErrorBadParameter, host.camera->ReadMemory(0x1AA00, packet)) << "beyond the end";
    host.Erase();
    EXPECT_EQ(Host::ProcessingError, host.Upload(file)) << "a fault";
    EXPECT_EQ(Host::EraseError, host.Erase()) << "a fault";
    host.Write(0x1A0B4, 6);
    file.back() = 1;
    EXPECT_EQ(Host::Invalid, host.Upload(file));
    host.Erase();
    host.Write(0x1A0AC, static_cast<std::uint32_t>(file.size()));
    host.Command(2);
    host.Send(0, file);
    EXPECT_EQ(Host::Uploading, host.Status());
    host.Send(1000, file);
    EXPECT_EQ(Host::ProcessingError, host.Status()) << "a packet is missing";
    EXPECT_EQ(ZltErrorSuccess, host.camera->Close());
    host = Host(rig.Opened());
    host.Write(0x1A0B4, 6);
    EXPECT_EQ(Host::Invalid, host.Status());
    EXPECT_EQ(ZltErrorSuccess, host.Command(5));
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(Host::Erasing, host.Status()) << "it sticks";
}

} // namespace Simulation
