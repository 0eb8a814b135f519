// Packets, entries and registers of the rectangle table.
#include "Firmware/Mask/RectangleTable.h"

#include "Firmware/Mask/Coverage.h"

#include <algorithm>
#include <optional>

namespace Simulation
{

namespace
{

// Hosts in the field know these numbers: no value may ever change.
constexpr std::uint64_t CapacityRegister = 0x19100;
constexpr std::uint64_t CountRegister = 0x19104;
constexpr std::uint64_t Window = 0x19300;
constexpr std::size_t CapacityUnit = 4;    // bytes
constexpr std::size_t EntrySize = 8;       // bytes
constexpr std::size_t LargestAccess = 256; // bytes
constexpr std::size_t PixelMeasure = 4;    // bytes of the capacity
constexpr std::size_t LineMeasure = 6;
constexpr std::size_t RectangleMeasure = 8;
const FileBytes TableEnd = {0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0};
const FileBytes PacketEnd(EntrySize, 0xFF);

// The entries up to the end of the table; none when a packet's end or the end of the bytes comes first.
std::optional<FileBytes> WholeTable(const FileBytes& bytes)
{
    for (std::size_t i = 0; i + EntrySize <= bytes.size(); i += EntrySize)
    {
        const auto entry = bytes.begin() + static_cast<std::ptrdiff_t>(i);
        if (std::equal(TableEnd.begin(), TableEnd.end(), entry))
        {
            return FileBytes(bytes.begin(), entry);
        }
        if (std::equal(PacketEnd.begin(), PacketEnd.end(), entry))
        {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace

std::size_t RectangleTable::WindowSize() const
{
    return m_capacity / PixelMeasure * EntrySize + LargestAccess;
}

ZltErrorType RectangleTable::Read(std::uint64_t address, std::vector<unsigned char>& data) const
{
    switch (address)
    {
    case CapacityRegister:
        return ReadRegister(static_cast<std::uint32_t>(m_capacity / CapacityUnit), data);
    case CountRegister:
        return ReadRegister(static_cast<std::uint32_t>(m_entries.size() / EntrySize), data);
    default:
        return address < Window || data.size() > LargestAccess
                   ? ZltErrorBadParameter
                   : ReadWindow(address - Window, WindowSize(), TableEnd, data);
    }
}

ZltErrorType RectangleTable::Write(std::uint64_t address, const std::vector<unsigned char>& data)
{
    if (address == CapacityRegister || address == CountRegister)
    {
        return ZltErrorInvalidAccess;
    }
    const std::size_t window = WindowSize();
    if (address < Window || data.size() > LargestAccess || address - Window > window - LargestAccess)
    {
        return ZltErrorBadParameter;
    }
    const auto offset = static_cast<std::size_t>(address - Window);
    if (offset > m_written.size())
    {
        return ZltErrorBadParameter; // nothing has come for the place ahead of it
    }
    m_written.resize(std::max(m_written.size(), offset + data.size()));
    std::copy(data.begin(), data.end(), m_written.begin() + static_cast<std::ptrdiff_t>(offset));
    auto table = WholeTable(m_written);
    if (!table)
    {
        return ZltErrorSuccess;
    }
    m_written.clear();
    if (!Fits(*table))
    {
        return ZltErrorResource;
    }
    m_entries = std::move(*table);
    return ZltErrorSuccess;
}

bool RectangleTable::Fits(const FileBytes& entries) const
{
    std::size_t sum = 0;
    for (std::size_t i = 0; i < entries.size(); i += EntrySize)
    {
        const std::uint32_t width = Number16(entries, i + 4);
        const std::uint32_t height = Number16(entries, i + 6);
        const bool isLine = (width == m_sensor.width && height == 1) || (width == 1 && height == m_sensor.height);
        sum += width == 1 && height == 1 ? PixelMeasure : (isLine ? LineMeasure : RectangleMeasure);
    }
    return sum <= m_capacity;
}

void RectangleTable::Load(FileBytes entries)
{
    m_entries = entries.size() % EntrySize == 0 && Fits(entries) ? std::move(entries) : FileBytes();
}

std::vector<PixelPosition> RectangleTable::Pixels(SensorSize sensor) const
{
    Coverage coverage(sensor);
    for (std::size_t i = 0; i < m_entries.size(); i += EntrySize)
    {
        const std::uint32_t x = Number16(m_entries, i);
        const std::uint32_t y = Number16(m_entries, i + 2);
        const std::uint32_t width = Number16(m_entries, i + 4);
        const std::uint32_t height = Number16(m_entries, i + 6);
        if (width > 0 && height > 0)
        {
            coverage.Add(x, y, x + width - 1, y + height - 1);
        }
    }
    return coverage.Pixels();
}

} // namespace Simulation
