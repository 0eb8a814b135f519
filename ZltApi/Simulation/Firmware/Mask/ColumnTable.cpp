// Entries and registers of the column masking table.
#include "Firmware/Mask/ColumnTable.h"

#include "Firmware/Mask/Coverage.h"

#include <utility>

namespace Simulation
{

namespace
{

// Hosts in the field know these numbers: no value may ever change.
constexpr std::uint64_t CountRegister = 0x19104;
constexpr std::uint64_t Window = 0x19108;
constexpr std::size_t EntrySize = 6; // bytes
constexpr std::size_t MostEntries = 64;
constexpr std::size_t WindowSize = EntrySize * MostEntries; // bytes

bool IsTable(const FileBytes& entries)
{
    return entries.size() % EntrySize == 0 && entries.size() <= WindowSize;
}

} // namespace

ZltErrorType ColumnTable::Read(std::uint64_t address, std::vector<unsigned char>& data) const
{
    if (address == CountRegister)
    {
        return ReadRegister(static_cast<std::uint32_t>(m_entries.size() / EntrySize), data);
    }
    return address < Window ? ZltErrorBadParameter : ReadWindow(address - Window, WindowSize, {}, data);
}

ZltErrorType ColumnTable::Write(std::uint64_t address, const std::vector<unsigned char>& data)
{
    if (address == CountRegister)
    {
        return ZltErrorInvalidAccess;
    }
    if (address != Window || !IsTable(data))
    {
        return ZltErrorBadParameter;
    }
    m_entries = data;
    return ZltErrorSuccess;
}

void ColumnTable::Load(FileBytes entries)
{
    m_entries = IsTable(entries) ? std::move(entries) : FileBytes();
}

std::vector<PixelPosition> ColumnTable::Pixels(SensorSize sensor) const
{
    Coverage coverage(sensor);
    for (std::size_t i = 0; i < m_entries.size(); i += EntrySize)
    {
        const std::uint32_t column = Number16(m_entries, i);
        coverage.Add(column, Number16(m_entries, i + 2), column, Number16(m_entries, i + 4));
    }
    return coverage.Pixels();
}

} // namespace Simulation
