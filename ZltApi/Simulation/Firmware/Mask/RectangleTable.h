// The table of defect rectangles of the older GigE cameras.
#pragma once

#include "Firmware/Mask/MaskTable.h"

namespace Simulation
{

// The capacity register at 0x19100 counts in units of 4 bytes, the register at 0x19104 the entries, and from 0x19300 on
// stand entries of 8 bytes: x, y, width and height, big-endian. A host writes the table in packets at rising addresses.
// A packet that is not the last one ends with 8 bytes FF, over which the next one is written; FF FF FF FF 00 00 00 00
// ends the table, and only then it is in force. Until then, the host reads the table in force.
class RectangleTable final : public MaskTable
{
public:
    // Capacity in bytes. A rectangle of one pixel takes 4 of them, a whole row or column of the sensor 6, any other 8.
    RectangleTable(std::uint32_t capacity, SensorSize sensor) : m_capacity(capacity), m_sensor(sensor) {}

    ZltErrorType Read(std::uint64_t address, std::vector<unsigned char>& data) const override;
    ZltErrorType Write(std::uint64_t address, const std::vector<unsigned char>& data) override;
    void Disconnect() override { m_written.clear(); }
    void Load(FileBytes entries) override;
    std::vector<PixelPosition> Pixels(SensorSize sensor) const override;

private:
    bool Fits(const FileBytes& entries) const;
    std::size_t WindowSize() const;

    const std::uint32_t m_capacity;
    const SensorSize m_sensor;
    FileBytes m_written; // of a table that has not been ended yet
};

} // namespace Simulation
