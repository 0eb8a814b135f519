// Conversion of colour pixels of three bytes.
#pragma once

#include <cstdint>

namespace ZltApi::ImageTransform
{

// To blue, green, red and 255. Width and height in pixels, at most 2^29 pixels in all.
void ConvertTriples(bool redFirst, const std::uint8_t* source, std::uint8_t* bgra, int width, int height);

} // namespace ZltApi::ImageTransform
