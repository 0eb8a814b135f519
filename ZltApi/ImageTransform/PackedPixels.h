// Pixels that share bytes with their neighbours, as one byte each.
#pragma once

#include "PixelLayout.h"

#include <cstddef>
#include <cstdint>

namespace ZltApi::ImageTransform
{

bool IsPacked(Encoding encoding);

// The high 8 bits of each pixel. Only for packed encodings; the first pixel begins with the first byte.
void UnpackPixels(Encoding encoding, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels);

} // namespace ZltApi::ImageTransform
