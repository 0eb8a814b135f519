// The header of a defect file with neighbour data.
#include "DpcHeader.h"

#include <algorithm>
#include <cassert>

namespace KTR::DPC
{

DpcHeader::DpcHeader(const std::vector<std::uint8_t>& file)
{
    assert(file.size() >= Size);
    std::copy_n(file.begin(), Size, m_bytes.begin());
}

void DpcHeader::Fill(std::uint32_t defectCount, std::uint32_t sensorWidth, std::uint32_t sensorHeight)
{
    setNumber(0, LittleEndianMark);
    setNumber(4, 1);
    setNumber(8, Size);
    setNumber(12, defectCount);
    setNumber(16, RecordSize);
    setNumber(20, sensorWidth);
    setNumber(24, sensorHeight);
}

std::uint32_t DpcHeader::number(std::size_t offset) const
{
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
    {
        value = value << 8 | m_bytes[offset + i];
    }
    return value;
}

void DpcHeader::setNumber(std::size_t offset, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; ++i, value >>= 8)
    {
        m_bytes[offset + i] = static_cast<std::uint8_t>(value);
    }
}

} // namespace KTR::DPC
