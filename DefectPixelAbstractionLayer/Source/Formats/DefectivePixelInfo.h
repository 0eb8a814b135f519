// A defective pixel with the neighbours that may stand in for it.
#pragma once

#include <cstdint>

namespace KTR::DPC
{

class DefectivePixelInfo
{
public:
    DefectivePixelInfo() = default;
    DefectivePixelInfo(std::uint16_t row, std::uint16_t column, std::uint32_t nbData)
        : m_row(row),
          m_column(column),
          m_nbData(nbData)
    {
    }

    std::uint16_t GetRow() const { return m_row; }
    std::uint16_t GetColumn() const { return m_column; }
    // Nine bits: bit 4 - d is set when the pixel d columns to the right can be used. Bit 4 is the pixel itself.
    std::uint32_t GetNBData() const { return m_nbData; }
    // 0 or 1; 0 from bit 32 on.
    std::uint32_t GetNBBitData(unsigned int bit) const;
    // A byte of the neighbour data, the least significant first. Throws a KTR::System::Exception from 4 on and below 0.
    std::uint8_t operator[](int index) const;

    // By the place alone: the neighbours do not count.
    bool operator==(const DefectivePixelInfo& other) const
    {
        return m_row == other.m_row && m_column == other.m_column;
    }

private:
    std::uint16_t m_row = 0;
    std::uint16_t m_column = 0;
    std::uint32_t m_nbData = 0;
};

} // namespace KTR::DPC
