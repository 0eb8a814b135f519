// Whether a USB camera is there, and whether some program holds it.
#include "Discovery/UsbHolder.h"

#include <fstream>

namespace GenICam
{

namespace
{

// Under this driver's name the kernel lists what a program has claimed.
constexpr const char* ProgramDriver = "usbfs";

std::string FirstLine(const std::filesystem::path& file)
{
    std::string line;
    std::ifstream stream(file);
    std::getline(stream, line);
    return line;
}

// The classes of a USB3 Vision camera's interfaces.
constexpr const char* MiscellaneousClass = "ef";
constexpr const char* VisionSubClass = "05";

struct Interfaces
{
    bool isCamera = false;
    bool isClaimed = false;
};

// The interfaces of a device stand beside it: those of "2-1" are called "2-1:1.0" and so on.
Interfaces LookAtInterfaces(const std::filesystem::path& devices, const std::string& device)
{
    Interfaces interfaces;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(devices, error), end; !error && entry != end; entry.increment(error))
    {
        const std::filesystem::path& folder = entry->path();
        if (folder.filename().string().rfind(device + ":", 0) != 0)
        {
            continue;
        }
        std::error_code noDriver;
        const std::filesystem::path driver = std::filesystem::read_symlink(folder / "driver", noDriver);
        interfaces.isClaimed |= !noDriver && driver.filename() == ProgramDriver;
        interfaces.isCamera |= FirstLine(folder / "bInterfaceClass") == MiscellaneousClass &&
                               FirstLine(folder / "bInterfaceSubClass") == VisionSubClass;
    }
    return interfaces;
}

} // namespace

ControlState ReadUsbControlState(const std::string& serialNumber, const std::filesystem::path& devices)
{
    std::error_code error;
    if (serialNumber.empty() || !std::filesystem::is_directory(devices, error))
    {
        return ControlState::Free;
    }
    ControlState state = ControlState::Unknown;
    for (std::filesystem::directory_iterator entry(devices, error), end; !error && entry != end; entry.increment(error))
    {
        if (FirstLine(entry->path() / "serial") != serialNumber)
        {
            continue;
        }
        // Other devices, and cameras of other makers, may have the same number.
        const Interfaces interfaces = LookAtInterfaces(devices, entry->path().filename().string());
        if (interfaces.isCamera && interfaces.isClaimed)
        {
            return ControlState::Held;
        }
        state = interfaces.isCamera ? ControlState::Free : state;
    }
    return error ? ControlState::Free : state;
}

} // namespace GenICam
