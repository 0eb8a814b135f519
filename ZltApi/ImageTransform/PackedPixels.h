// Unpacking of pixels that share bytes with their neighbours.
#pragma once

#include "PixelLayout.h"

#include <cstddef>
#include <cstdint>

namespace ZltApi::ImageTransform
{

bool IsPacked(Encoding encoding);

// The high 8 bits of each pixel, and the grey that they make with 255 for alpha. Only for packed encodings.
void UnpackToBytes(Encoding encoding, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels);
void UnpackToBgra(Encoding encoding, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels);

} // namespace ZltApi::ImageTransform
