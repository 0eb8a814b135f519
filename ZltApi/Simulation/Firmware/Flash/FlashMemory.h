// The flash file system of the flash family: registers, transfer windows, and what the flash does meanwhile.
#pragma once

#include "Firmware/Firmware.h"
#include "State/StateFile.h"

#include <chrono>
#include <functional>
#include <map>
#include <string>

namespace Simulation
{

// Two files: the user's, and the factory's, which no host can change. A file goes through erased, uploading,
// processing, valid, erasing, erased. Erasing and processing take their time; the host looks at the status register.
// An erase and the start of an upload need the access code in the command ahead of them. An upload that does not
// arrive whole and in order, or that holds no file, leaves the user's file invalid.
class FlashMemory
{
public:
    // Whether uploaded bytes are a file.
    using Check = std::function<bool(const FileBytes&)>;

    FlashMemory(const FirmwareServices& services, Check isFile);

    static constexpr const char* UserFile = "UserDefects";       // names in the camera's state
    static constexpr const char* FactoryFile = "FactoryDefects"; //

    ZltErrorType Read(std::uint64_t address, std::vector<unsigned char>& data);
    ZltErrorType Write(std::uint64_t address, const std::vector<unsigned char>& data);
    // A host has gone: what it was uploading stays as it is.
    void Disconnect();

private:
    using Clock = std::chrono::steady_clock;

    // Of the user's file; at rest its content tells the status.
    enum class Activity
    {
        Rest,
        Erasing,
        Uploading,
        Processing
    };

    // What a file holds, kept as long as a host is there: status and packets ask for it often.
    struct Content
    {
        FileBytes bytes;
        bool isFile = false;
    };

    std::uint32_t Status();
    std::uint32_t Register(std::uint64_t address);
    ZltErrorType SetRegister(std::uint64_t address, std::uint32_t value);
    ZltErrorType Command(std::uint32_t command);
    ZltErrorType Erase();
    ZltErrorType StartUpload();
    ZltErrorType Send(std::vector<unsigned char>& packet);
    ZltErrorType Receive(const std::vector<unsigned char>& packet);
    void Begin(Activity activity, const char* operation, std::chrono::milliseconds time, std::uint32_t error);
    void Advance();
    const char* Selected() const;         // null for an unknown number
    void Store(const FileBytes& content); // as the user's file
    // Of the selected file.
    const Content& SelectedContent();

    const FirmwareServices m_services;
    const Check m_isFile;
    std::uint32_t m_selected;
    std::uint32_t m_readOffset = 0;
    std::uint32_t m_uploadLength = 0;
    bool m_isPrivileged = false; // the next command may change a file
    Activity m_activity = Activity::Rest;
    Clock::time_point m_end;      // of what is erased or processed
    std::uint32_t m_endError = 0; // the status in which it ends; 0: well
    std::uint32_t m_error = 0;    // status until it is cleared; 0: none
    FileBytes m_upload;
    std::map<std::string, Content> m_contents;
};

} // namespace Simulation
