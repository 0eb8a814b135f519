// Registers, windows and codes of the flash file system in the flash family.
#pragma once

#include <cstddef>
#include <cstdint>

// Cameras hold these numbers: they never change. Registers have 32 bits, big-endian.
namespace KTR::DPC::QuorsalinWithPython
{

enum Register : std::uint64_t
{
    ControlsInquiry1 = 0x14000, // capability bits
    FlashFileMaxSize = 0x1A0A0, // of any file, bytes
    FlashFileLength = 0x1A0A4,  // of the selected file, bytes
    FlashFileReadOffset = 0x1A0A8,
    FlashFileUploadLength = 0x1A0AC, // of the file about to come, bytes
    FlashFileStatus = 0x1A0B0,       // of the selected file
    FlashFileCommand = 0x1A0B4,
    FlashFileSelectID = 0x1A0BC
};

constexpr std::uint32_t FlashFileAccessBit = 22; // of ControlsInquiry1

// Camera memory: one packet each.
constexpr std::uint64_t FileUploadTransferBuffer = 0x1A100;
constexpr std::uint64_t FileDownloadTransferBuffer = 0x1AA00;
constexpr std::size_t PacketHeadSize = 4;    // bytes: the packet's offset in the file, big-endian
constexpr std::uint32_t LargestPacket = 500; // bytes of file data
constexpr std::uint32_t FileSizeStep = 4;    // bytes

enum FileId : std::uint32_t
{
    FF_ID_UserDefect = 102101,
    FF_ID_FactoryDefect = 103100
};

enum FileStatus : std::uint32_t
{
    FF_STAT_UNFORMATTED = 0xFFFFFFFF,
    FF_STAT_ERASED = 0xFFFFFFFE,
    FF_STAT_PROCESSING = 0xFFFFFFC0,
    FF_STAT_FILE_UPLOADING = 0xFFFFFE00,
    FF_STAT_FILE_INVALID = 0xFFFFFC00,
    FF_STAT_FILE_VALID = 0xFFFFF800,
    FF_STAT_PROCESSING_ERROR = 0xFFFFF000,
    FF_STAT_ERASING = 0xFE000000,
    FF_STAT_ERASE_ERROR = 0xFC000000,
    FF_STAT_UNAVAILABLE = 0xE0000000,
    FF_STAT_NO_FILE_SYSTEM = 0
};

enum FileCommand : std::uint32_t
{
    FCMD_START_FLASH_FILE_UPLOAD = 2,
    FCMD_FLASH_FILE_ERASE = 5,
    FCMD_CLEAR_ERROR = 6,
    FCMD_SET_FLASH_FILE_PRIVILEGE_LEVEL = 1532604 // lets the following command change a file
};

} // namespace KTR::DPC::QuorsalinWithPython
