// The place of a pixel in 16-bit sensor coordinates.
#pragma once

#include <cstdint>

namespace KTR::DPC
{

struct PixelCoords
{
    std::uint16_t x = 0;
    std::uint16_t y = 0;

    bool operator==(const PixelCoords& other) const { return x == other.x && y == other.y; }
};

} // namespace KTR::DPC
