// Colour interpolation of Bayer mosaics.
#pragma once

#include "PixelLayout.h"

#include <cstddef>
#include <cstdint>

namespace ZltApi::ImageTransform
{

// Gives each pixel its own colour as it is, and the two others as the rounded mean of the pixels of that colour among
// its eight neighbours; at the border, of those neighbours that exist. A colour that no neighbour has (in images of one
// row or column) becomes the pixel's own value. Width and height in pixels, at most 2^29 pixels in all.
void Demosaic(Mosaic mosaic, const std::uint8_t* source, std::uint8_t* bgra, int width, int height);

} // namespace ZltApi::ImageTransform
