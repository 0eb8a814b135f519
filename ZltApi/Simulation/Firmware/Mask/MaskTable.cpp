// What the tables in camera memory have in common.
#include "Firmware/Mask/MaskTable.h"

namespace Simulation
{

ZltErrorType MaskTable::ReadRegister(std::uint32_t value, std::vector<unsigned char>& data)
{
    constexpr std::size_t Size = 4;
    if (data.size() != Size)
    {
        return ZltErrorBadParameter;
    }
    for (std::size_t i = Size; i-- > 0; value >>= 8)
    {
        data[i] = static_cast<unsigned char>(value & 0xFF);
    }
    return ZltErrorSuccess;
}

ZltErrorType MaskTable::ReadWindow(std::uint64_t offset, std::size_t window, const FileBytes& end,
                                   std::vector<unsigned char>& data) const
{
    if (offset > window || data.size() > window - offset)
    {
        return ZltErrorBadParameter;
    }
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        const std::size_t at = static_cast<std::size_t>(offset) + i;
        const std::size_t behind = at - m_entries.size();
        const bool isEntry = at < m_entries.size();
        data[i] = isEntry ? m_entries[at] : (behind < end.size() ? end[behind] : static_cast<unsigned char>(0));
    }
    return ZltErrorSuccess;
}

} // namespace Simulation
