// Moving the files of the flash family through registers and transfer windows.
#include "DpcAdapterQuorsalinWithPython.h"

#include "AdapterFailure.h"
#include "QuorsalinFlashRegisters.h"

#include <algorithm>
#include <thread>

namespace KTR::DPC
{

using namespace QuorsalinWithPython;

bool DpcAdapterQuorsalinWithPython::CameraSupportsFlashFileAccess()
{
    return (camera()->ReadRegisterZoltaLegacy(ControlsInquiry1) >> FlashFileAccessBit & 1U) != 0 &&
           camera()->ReadRegisterZoltaLegacy(FlashFileStatus) != FF_STAT_NO_FILE_SYSTEM;
}

bool DpcAdapterQuorsalinWithPython::HandleErrorStatus()
{
    if (camera()->ReadRegisterZoltaLegacy(FlashFileStatus) == FF_STAT_ERASE_ERROR)
    {
        return true;
    }
    try
    {
        camera()->WriteRegisterZoltaLegacy(FlashFileCommand, FCMD_CLEAR_ERROR);
        return true;
    }
    catch (const System::Exception&)
    {
        return false;
    }
}

bool DpcAdapterQuorsalinWithPython::ReadDataPacket(std::uint32_t offset, unsigned char* data, std::uint32_t length)
{
    const std::size_t size = PacketHeadSize + length;
    std::vector<std::uint8_t> packet(size);
    camera()->ReadMemory(FileDownloadTransferBuffer, packet);
    if (packet.size() != size)
    {
        return false;
    }
    std::uint32_t place = 0;
    for (std::size_t i = 0; i < PacketHeadSize; ++i)
    {
        place = place << 8 | packet[i];
    }
    std::copy(packet.begin() + PacketHeadSize, packet.end(), data);
    return place == offset;
}

void DpcAdapterQuorsalinWithPython::WriteDataPacket(std::uint32_t offset, const unsigned char* data,
                                                    std::uint32_t length)
{
    std::vector<std::uint8_t> packet;
    packet.reserve(PacketHeadSize + length);
    for (int shift = 24; shift >= 0; shift -= 8)
    {
        packet.push_back(static_cast<std::uint8_t>(offset >> shift));
    }
    packet.insert(packet.end(), data, data + length);
    camera()->WriteMemory(FileUploadTransferBuffer, packet);
}

bool DpcAdapterQuorsalinWithPython::DownloadFlashFile(std::uint32_t id, std::vector<unsigned char>& data)
{
    camera()->WriteRegisterZoltaLegacy(FlashFileSelectID, id);
    if (!HandleErrorStatus())
    {
        fail("Flash file error handling failed");
    }
    if (camera()->ReadRegisterZoltaLegacy(FlashFileStatus) != FF_STAT_FILE_VALID)
    {
        fail("Flash status error");
    }
    const std::uint32_t size = camera()->ReadRegisterZoltaLegacy(FlashFileLength);
    if (size == 0)
    {
        return true;
    }
    if (size % FileSizeStep != 0)
    {
        fail("fileSize no multiple of 4");
    }
    camera()->WriteRegisterZoltaLegacy(FlashFileReadOffset, 0);
    // Grows with what arrives, so that a camera with a wrong length does not take all memory.
    data.clear();
    for (std::uint32_t offset = 0; offset < size;)
    {
        const std::uint32_t length = std::min(LargestPacket, size - offset);
        data.resize(data.size() + length);
        if (!ReadDataPacket(offset, data.data() + offset, length))
        {
            fail("Could not read data packet.");
        }
        offset += length;
    }
    return true;
}

std::uint32_t DpcAdapterQuorsalinWithPython::WaitWhile(std::uint32_t busy, std::uint32_t otherBusy)
{
    std::uint32_t status = busy;
    while (status == busy || status == otherBusy)
    {
        std::this_thread::sleep_for(m_pollPeriod);
        status = camera()->ReadRegisterZoltaLegacy(FlashFileStatus);
    }
    return status;
}

void DpcAdapterQuorsalinWithPython::EraseFlashFile(std::uint32_t id, std::uint32_t privilege, std::uint32_t& status)
{
    camera()->WriteRegisterZoltaLegacy(FlashFileSelectID, id);
    if (!HandleErrorStatus())
    {
        fail("Failed to handle error status");
    }
    status = camera()->ReadRegisterZoltaLegacy(FlashFileStatus);
    if (status == FF_STAT_ERASED)
    {
        return;
    }
    camera()->WriteRegisterZoltaLegacy(FlashFileCommand, privilege);
    camera()->WriteRegisterZoltaLegacy(FlashFileCommand, FCMD_FLASH_FILE_ERASE);
    status = WaitWhile(FF_STAT_ERASING, FF_STAT_ERASING);
    if (status != FF_STAT_ERASED)
    {
        fail("Flash Erase command failed. Flash File Status invalid.");
    }
}

void DpcAdapterQuorsalinWithPython::UploadFlashFile(std::uint32_t id, std::uint32_t privilege,
                                                    const std::vector<unsigned char>& data)
{
    if (data.empty())
    {
        fail("Cannot upload empty file!");
    }
    camera()->WriteRegisterZoltaLegacy(FlashFileSelectID, id);
    std::uint32_t status = 0;
    EraseFlashFile(id, privilege, status);
    if (camera()->ReadRegisterZoltaLegacy(FlashFileStatus) != FF_STAT_ERASED)
    {
        EraseFlashFile(id, privilege, status);
    }
    // Only now: a file that is refused here has cost the old one already.
    if (data.size() % FileSizeStep != 0)
    {
        fail("File size is not multiple of 4.");
    }
    if (data.size() > m_maxFileSize)
    {
        fail("File too big! File size exceeds " + std::to_string(m_maxFileSize));
    }
    const auto size = static_cast<std::uint32_t>(data.size());
    camera()->WriteRegisterZoltaLegacy(FlashFileCommand, privilege);
    camera()->WriteRegisterZoltaLegacy(FlashFileUploadLength, size);
    camera()->WriteRegisterZoltaLegacy(FlashFileCommand, FCMD_START_FLASH_FILE_UPLOAD);
    for (std::uint32_t offset = 0; offset < size; offset += std::min(LargestPacket, size - offset))
    {
        WriteDataPacket(offset, data.data() + offset, std::min(LargestPacket, size - offset));
    }
    if (WaitWhile(FF_STAT_PROCESSING, FF_STAT_FILE_UPLOADING) != FF_STAT_FILE_VALID)
    {
        fail("Flash Upload command failed. Flash File Status invalid.");
    }
}

void DpcAdapterQuorsalinWithPython::UploadDefectivePixelList(const std::vector<unsigned char>& data)
{
    if (!CameraSupportsFlashFileAccess())
    {
        fail("The camera does not support flash file access!");
    }
    UploadFlashFile(FF_ID_UserDefect, FCMD_SET_FLASH_FILE_PRIVILEGE_LEVEL, data);
    std::vector<unsigned char> stored;
    if (!DownloadFlashFile(FF_ID_UserDefect, stored))
    {
        fail("Upload Defect file failed.");
    }
    if (stored != data)
    {
        fail("DPC data downloaded does not match the correction data saved! ");
    }
}

} // namespace KTR::DPC
