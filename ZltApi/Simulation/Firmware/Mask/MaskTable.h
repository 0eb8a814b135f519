// A table of defects in camera memory, with the registers beside it.
#pragma once

#include "Firmware/Firmware.h"
#include "State/StateFile.h"
#include "ZltApi/ResultCodes.h"

#include <cstdint>
#include <vector>

namespace Simulation
{

class MaskTable
{
public:
    virtual ~MaskTable() = default;

    // One access of a host; the vector's size is the number of bytes to move.
    virtual ZltErrorType Read(std::uint64_t address, std::vector<unsigned char>& data) const = 0;
    virtual ZltErrorType Write(std::uint64_t address, const std::vector<unsigned char>& data) = 0;
    // A host has gone: what it has not finished is dropped.
    virtual void Disconnect() {}

    // The entries in force, as the camera stores them.
    const FileBytes& Entries() const { return m_entries; }
    // Takes stored entries; those that the camera could not have stored are none.
    virtual void Load(FileBytes entries) = 0;
    // The pixels that they cover, without those outside the sensor.
    virtual std::vector<PixelPosition> Pixels(SensorSize sensor) const = 0;

protected:
    static std::uint32_t Number16(const FileBytes& bytes, std::size_t at)
    {
        return static_cast<std::uint32_t>(bytes[at]) << 8 | bytes[at + 1];
    }
    // A register as the host reads it; it takes 4 bytes.
    static ZltErrorType ReadRegister(std::uint32_t value, std::vector<unsigned char>& data);
    // A part of a window of that many bytes, which holds the entries, then an end mark, then zeros.
    ZltErrorType ReadWindow(std::uint64_t offset, std::size_t window, const FileBytes& end,
                            std::vector<unsigned char>& data) const;
    FileBytes m_entries;
};

} // namespace Simulation
