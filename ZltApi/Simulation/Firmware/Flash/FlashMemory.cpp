// Registers and states of the flash file system.
#include "Firmware/Flash/FlashMemory.h"

#include <algorithm>
#include <utility>

namespace Simulation
{

namespace
{

// Hosts in the field know these numbers: no value may ever change.
constexpr std::uint64_t Inquiry = 0x14000;
constexpr std::uint64_t MaxSize = 0x1A0A0;
constexpr std::uint64_t Length = 0x1A0A4;
constexpr std::uint64_t ReadOffset = 0x1A0A8;
constexpr std::uint64_t UploadLength = 0x1A0AC;
constexpr std::uint64_t StatusRegister = 0x1A0B0;
constexpr std::uint64_t CommandRegister = 0x1A0B4;
constexpr std::uint64_t SelectId = 0x1A0BC;
constexpr std::uint64_t UploadWindow = 0x1A100;
constexpr std::uint64_t DownloadWindow = 0x1AA00;
constexpr std::size_t PacketHead = 4;                 // bytes
constexpr std::size_t PacketData = 500;               // bytes at most
constexpr std::size_t RegisterSize = 4;               // bytes
constexpr std::uint32_t SizeStep = 4;                 // bytes
constexpr std::uint32_t Capabilities = 1U << 22 | 1U; // flash files, and something else

constexpr std::uint32_t UserId = 102'101;
constexpr std::uint32_t FactoryId = 103'100;

constexpr std::uint32_t CommandUpload = 2;
constexpr std::uint32_t CommandErase = 5;
constexpr std::uint32_t CommandClear = 6;
constexpr std::uint32_t AccessCode = 1'532'604;

constexpr std::uint32_t Erased = 0xFFFFFFFE;
constexpr std::uint32_t Processing = 0xFFFFFFC0;
constexpr std::uint32_t Uploading = 0xFFFFFE00;
constexpr std::uint32_t Invalid = 0xFFFFFC00;
constexpr std::uint32_t Valid = 0xFFFFF800;
constexpr std::uint32_t ProcessingError = 0xFFFFF000;
constexpr std::uint32_t Erasing = 0xFE000000;
constexpr std::uint32_t EraseError = 0xFC000000;
constexpr std::uint32_t Unavailable = 0xE0000000;

std::uint32_t BigEndian(const std::vector<unsigned char>& bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
}

void PutBigEndian(std::vector<unsigned char>& bytes, std::uint32_t value)
{
    for (std::size_t i = RegisterSize; i-- > 0; value >>= 8)
    {
        bytes[i] = static_cast<unsigned char>(value & 0xFF);
    }
}

} // namespace

FlashMemory::FlashMemory(const FirmwareServices& services, Check isFile)
    : m_services(services),
      m_isFile(std::move(isFile)),
      m_selected(UserId)
{
}

const FlashMemory::Content& FlashMemory::SelectedContent()
{
    const auto [content, isNew] = m_contents.try_emplace(Selected());
    if (isNew)
    {
        content->second.bytes = m_services.state.File(Selected(), m_services.config.fileSizeMax).value_or(FileBytes());
        content->second.isFile = m_isFile(content->second.bytes);
    }
    return content->second;
}

void FlashMemory::Store(const FileBytes& content)
{
    m_services.state.SetFile(UserFile, content);
    m_contents.erase(UserFile);
}

const char* FlashMemory::Selected() const
{
    return m_selected == UserId ? UserFile : (m_selected == FactoryId ? FactoryFile : nullptr);
}

void FlashMemory::Disconnect()
{
    if (m_activity == Activity::Uploading || m_activity == Activity::Processing)
    {
        m_activity = Activity::Rest;
        Store(m_upload);
    }
    m_contents.clear();
    m_isPrivileged = false;
    m_selected = UserId;
    m_readOffset = 0;
}

ZltErrorType FlashMemory::Read(std::uint64_t address, std::vector<unsigned char>& data)
{
    Advance();
    if (address == DownloadWindow)
    {
        return Send(data);
    }
    const bool isRegister = address == Inquiry || (address >= MaxSize && address <= SelectId && address % 4 == 0);
    if (!isRegister || data.size() != RegisterSize)
    {
        return ZltErrorBadParameter;
    }
    PutBigEndian(data, Register(address));
    return ZltErrorSuccess;
}

ZltErrorType FlashMemory::Write(std::uint64_t address, const std::vector<unsigned char>& data)
{
    Advance();
    if (address == UploadWindow)
    {
        return Receive(data);
    }
    return data.size() == RegisterSize ? SetRegister(address, BigEndian(data)) : ZltErrorBadParameter;
}

std::uint32_t FlashMemory::Register(std::uint64_t address)
{
    switch (address)
    {
    case Inquiry:
        return Capabilities;
    case MaxSize:
        return m_services.config.fileSizeMax;
    case Length:
        return Status() == Valid ? static_cast<std::uint32_t>(SelectedContent().bytes.size()) : 0;
    case ReadOffset:
        return m_readOffset;
    case UploadLength:
        return m_uploadLength;
    case StatusRegister:
        return Status();
    case SelectId:
        return m_selected;
    default:
        return 0;
    }
}

std::uint32_t FlashMemory::Status()
{
    if (!Selected())
    {
        return Unavailable;
    }
    if (m_selected == UserId)
    {
        if (m_error != 0)
        {
            return m_error;
        }
        switch (m_activity)
        {
        case Activity::Erasing:
            return Erasing;
        case Activity::Uploading:
            return Uploading;
        case Activity::Processing:
            return Processing;
        case Activity::Rest:
            break;
        }
    }
    const Content& content = SelectedContent();
    return content.bytes.empty() ? Erased : (content.isFile ? Valid : Invalid);
}

ZltErrorType FlashMemory::SetRegister(std::uint64_t address, std::uint32_t value)
{
    switch (address)
    {
    case SelectId:
        m_selected = value;
        m_readOffset = 0;
        return ZltErrorSuccess;
    case ReadOffset:
        m_readOffset = value;
        return ZltErrorSuccess;
    case UploadLength:
        m_uploadLength = value;
        return ZltErrorSuccess;
    case CommandRegister:
        return Command(value);
    case Inquiry:
    case MaxSize:
    case Length:
    case StatusRegister:
        return ZltErrorInvalidAccess;
    default:
        return ZltErrorBadParameter;
    }
}

ZltErrorType FlashMemory::Command(std::uint32_t command)
{
    const bool mayChange = std::exchange(m_isPrivileged, command == AccessCode) && m_selected == UserId;
    switch (command)
    {
    case AccessCode:
        return ZltErrorSuccess;
    case CommandClear:
        m_error = m_selected == UserId ? 0 : m_error;
        return ZltErrorSuccess;
    case CommandErase:
        return mayChange ? Erase() : ZltErrorInvalidAccess;
    case CommandUpload:
        return mayChange ? StartUpload() : ZltErrorInvalidAccess;
    default:
        return ZltErrorInvalidValue;
    }
}

ZltErrorType FlashMemory::Erase()
{
    if (m_activity == Activity::Erasing || m_activity == Activity::Processing)
    {
        return m_activity == Activity::Erasing ? ZltErrorSuccess : ZltErrorInvalidAccess; // it is at it, or busy
    }
    m_error = 0;
    m_upload.clear();
    Store({});
    Begin(Activity::Erasing, "FlashErase", m_services.config.flashTime, EraseError);
    return ZltErrorSuccess;
}

ZltErrorType FlashMemory::StartUpload()
{
    if (Status() != Erased || m_uploadLength == 0 || m_uploadLength % SizeStep != 0 ||
        m_uploadLength > m_services.config.fileSizeMax)
    {
        m_error = ProcessingError;
        return ZltErrorSuccess;
    }
    m_activity = Activity::Uploading;
    m_upload.clear();
    return ZltErrorSuccess;
}

ZltErrorType FlashMemory::Receive(const std::vector<unsigned char>& packet)
{
    if (packet.size() <= PacketHead || packet.size() > PacketHead + PacketData)
    {
        return ZltErrorBadParameter;
    }
    if (m_activity != Activity::Uploading)
    {
        return m_error != 0 ? ZltErrorSuccess : ZltErrorInvalidAccess; // the status tells that it was in vain
    }
    if (BigEndian(packet) != m_upload.size() || packet.size() - PacketHead > m_uploadLength - m_upload.size())
    {
        Store(m_upload);
        m_activity = Activity::Rest;
        m_error = ProcessingError;
        return ZltErrorSuccess;
    }
    m_upload.insert(m_upload.end(), packet.begin() + PacketHead, packet.end());
    if (m_upload.size() == m_uploadLength)
    {
        Begin(Activity::Processing, "FlashProgram", m_services.config.flashTime / 2, ProcessingError);
    }
    return ZltErrorSuccess;
}

ZltErrorType FlashMemory::Send(std::vector<unsigned char>& packet)
{
    if (packet.size() <= PacketHead || packet.size() > PacketHead + PacketData)
    {
        return ZltErrorBadParameter;
    }
    if (Status() != Valid)
    {
        return ZltErrorInvalidAccess;
    }
    const FileBytes& content = SelectedContent().bytes;
    const std::size_t count = packet.size() - PacketHead;
    if (m_readOffset > content.size() || count > content.size() - m_readOffset)
    {
        return ZltErrorBadParameter;
    }
    PutBigEndian(packet, m_readOffset);
    std::copy_n(content.begin() + m_readOffset, count, packet.begin() + PacketHead);
    m_readOffset += static_cast<std::uint32_t>(count);
    return ZltErrorSuccess;
}

void FlashMemory::Begin(Activity activity, const char* operation, std::chrono::milliseconds time, std::uint32_t error)
{
    const FaultEffect fault = m_services.faults.Hit(operation, std::to_string(UserId));
    m_activity = activity;
    m_end = fault.hang ? Clock::time_point::max() : Clock::now() + time + std::chrono::milliseconds(fault.delayMs);
    m_endError = fault.code ? error : 0;
}

void FlashMemory::Advance()
{
    const bool isTimed = m_activity == Activity::Erasing || m_activity == Activity::Processing;
    if (!isTimed || Clock::now() < m_end)
    {
        return;
    }
    if (m_activity == Activity::Processing)
    {
        Store(m_upload);
    }
    m_activity = Activity::Rest;
    m_error = m_endError;
}

} // namespace Simulation
