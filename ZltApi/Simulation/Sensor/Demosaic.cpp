// The interpolation, one row at a time from three rows of counts.
#include "Demosaic.h"

#include <cassert>

namespace Simulation
{

namespace
{

constexpr unsigned CountBits = 12;

// The mean of count values (a power of two), in 8 bits.
template <unsigned Count> std::uint8_t Mean(unsigned sum)
{
    return static_cast<std::uint8_t>(sum / Count >> (CountBits - 8U));
}

// The neighbours of a place on an axis. The mosaic's mirror image keeps the colours in step.
std::uint32_t Before(std::uint32_t place, std::uint32_t size)
{
    return place > 0 ? place - 1 : (size > 1 ? 1 : 0);
}

std::uint32_t After(std::uint32_t place, std::uint32_t size)
{
    return place + 1 < size ? place + 1 : Before(place, size);
}

} // namespace

void Demosaic::Row(std::uint32_t y, std::uint32_t x, std::vector<RgbPixel>& line) const
{
    assert(y < m_height && x <= m_width && line.size() <= m_width - x);
    const auto row = [this](std::uint32_t place) { return m_raw.data() + static_cast<std::size_t>(place) * m_width; };
    const std::uint16_t* above = row(Before(y, m_height));
    const std::uint16_t* here = row(y);
    const std::uint16_t* below = row(After(y, m_height));
    // A row holds green and one other colour; the rows beside it hold green and the third.
    const bool redRow =
        FilterChannel(m_filter, 0, y) == ColorChannel::Red || FilterChannel(m_filter, 1, y) == ColorChannel::Red;
    std::uint32_t column = x;
    bool green = FilterChannel(m_filter, column, y) == ColorChannel::Green;
    for (RgbPixel& pixel : line)
    {
        const std::uint32_t left = Before(column, m_width);
        const std::uint32_t right = After(column, m_width);
        const unsigned across = here[left] + here[right];
        const unsigned upright = above[column] + below[column];
        std::uint8_t own = 0;
        std::uint8_t third = 0;
        if (green)
        {
            own = Mean<2>(across);
            third = Mean<2>(upright);
            pixel.green = Mean<1>(here[column]);
        }
        else
        {
            own = Mean<1>(here[column]);
            third = Mean<4>(above[left] + above[right] + below[left] + below[right]);
            pixel.green = Mean<4>(across + upright);
        }
        pixel.red = redRow ? own : third;
        pixel.blue = redRow ? third : own;
        green = !green;
        ++column;
    }
}

} // namespace Simulation
