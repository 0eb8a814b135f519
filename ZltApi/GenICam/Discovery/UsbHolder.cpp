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

// The interfaces of a device stand beside it: those of "2-1" are called "2-1:1.0" and so on.
bool HasClaimedInterface(const std::filesystem::path& devices, const std::string& device)
{
    std::error_code error;
    for (std::filesystem::directory_iterator entry(devices, error), end; !error && entry != end; entry.increment(error))
    {
        std::error_code noDriver;
        const std::filesystem::path driver = std::filesystem::read_symlink(entry->path() / "driver", noDriver);
        if (!noDriver && driver.filename() == ProgramDriver &&
            entry->path().filename().string().rfind(device + ":", 0) == 0)
        {
            return true;
        }
    }
    return false;
}

} // namespace

ControlState ReadUsbControlState(const std::string& serialNumber, const std::filesystem::path& devices)
{
    std::error_code error;
    if (serialNumber.empty() || !std::filesystem::is_directory(devices, error))
    {
        return ControlState::Free;
    }
    for (std::filesystem::directory_iterator entry(devices, error), end; !error && entry != end; entry.increment(error))
    {
        if (FirstLine(entry->path() / "serial") == serialNumber)
        {
            return HasClaimedInterface(devices, entry->path().filename().string()) ? ControlState::Held
                                                                                   : ControlState::Free;
        }
    }
    return error ? ControlState::Free : ControlState::Unknown;
}

} // namespace GenICam
