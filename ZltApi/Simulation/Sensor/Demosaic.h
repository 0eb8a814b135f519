// Colour interpolation in the camera.
#pragma once

#include "ColorFilter.h"

#include <cstdint>
#include <vector>

namespace Simulation
{

// Eight bits a colour.
struct RgbPixel
{
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

// Bilinear interpolation of a Bayer mosaic of 12-bit counts: a missing colour is the mean of its nearest neighbours.
// Outside the edges the mosaic goes on as its mirror image. Borrows the counts.
class Demosaic
{
public:
    Demosaic(const std::vector<std::uint16_t>& raw, std::uint32_t width, std::uint32_t height, ColorFilter filter)
        : m_raw(raw),
          m_width(width),
          m_height(height),
          m_filter(filter)
    {
    }

    // Fills the line with the pixels of row y from column x on.
    void Row(std::uint32_t y, std::uint32_t x, std::vector<RgbPixel>& line) const;

private:
    const std::vector<std::uint16_t>& m_raw;
    std::uint32_t m_width;
    std::uint32_t m_height;
    ColorFilter m_filter;
};

} // namespace Simulation
