// The column masking table of the older GigE cameras.
#pragma once

#include "Firmware/Mask/MaskTable.h"

namespace Simulation
{

// The register at 0x19104 counts the entries, and from 0x19108 on stand entries of 6 bytes: column, first row and last
// row, big-endian. A write at the start of the window replaces the table: its length tells how many entries there are,
// and one without bytes empties the table.
class ColumnTable final : public MaskTable
{
public:
    ZltErrorType Read(std::uint64_t address, std::vector<unsigned char>& data) const override;
    ZltErrorType Write(std::uint64_t address, const std::vector<unsigned char>& data) override;
    void Load(FileBytes entries) override;
    std::vector<PixelPosition> Pixels(SensorSize sensor) const override;
};

} // namespace Simulation
