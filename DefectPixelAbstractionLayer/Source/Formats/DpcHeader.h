// The header of a defect file with neighbour data.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace KTR::DPC
{

// Numbers are little-endian; what no number takes is 0xFF. Cameras hold these bytes: no number here ever changes.
class DpcHeader
{
public:
    static constexpr std::size_t Size = 4096; // bytes, and the offset of the first record
    static constexpr std::size_t RecordSize = 8;
    static constexpr std::uint32_t LittleEndianMark = 0xFFFFFFFF;

    DpcHeader() { m_bytes.fill(0xFF); }
    // Takes the first bytes of a file, which has at least Size of them.
    explicit DpcHeader(const std::vector<std::uint8_t>& file);

    // The numbers of a file that this version writes; the sensor's size in pixels.
    void Fill(std::uint32_t defectCount, std::uint32_t sensorWidth, std::uint32_t sensorHeight);

    // Byte order of the coordinates in the records. The header's own numbers are little-endian in any case.
    bool IsLittleEndian() const { return number(0) == LittleEndianMark; }
    std::uint32_t GetDefectCount() const { return number(12); }
    const std::array<std::uint8_t, Size>& GetBytes() const { return m_bytes; }

private:
    std::uint32_t number(std::size_t offset) const;
    void setNumber(std::size_t offset, std::uint32_t value);

    std::array<std::uint8_t, Size> m_bytes{};
};

} // namespace KTR::DPC
