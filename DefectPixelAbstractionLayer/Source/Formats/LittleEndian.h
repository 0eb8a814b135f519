// Reads little-endian numbers out of bytes from a camera.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace KTR::DPC
{

// Positions in bytes. A number that is not wholly inside the data ends the process: what needs an answer for cut data
// looks at the size first.
inline std::uint16_t read16(const std::vector<std::uint8_t>& data, std::size_t pos)
{
    assert(pos + 1 < data.size());
    return static_cast<std::uint16_t>(data[pos] | data[pos + 1] << 8);
}

inline std::uint32_t read32(const std::vector<std::uint8_t>& data, std::size_t pos)
{
    assert(pos + 3 < data.size());
    return read16(data, pos) | static_cast<std::uint32_t>(read16(data, pos + 2)) << 16;
}

} // namespace KTR::DPC
