// Conversion of runs of pixels, as long as a whole image: rows follow one another without a gap.
#pragma once

#include "PixelLayout.h"

#include <cstddef>
#include <cstdint>

namespace ZltApi::ImageTransform
{

constexpr std::size_t BgraBytes = 4;

// The bytes that so many pixels of so many bits take.
constexpr std::uint64_t BytesOfPixels(std::uint64_t pixels, std::uint32_t bitsPerPixel)
{
    return (pixels * bitsPerPixel + 7) / 8;
}

// Reduces grey or mosaic pixels to one byte each. Not for colour encodings.
void ReduceToBytes(const PixelLayout& layout, const std::uint8_t* source, std::uint8_t* destination,
                   std::size_t pixels);

// Converts grey or colour pixels, other than those of three bytes, to blue, green, red and 255. Mosaic pixels become
// grey.
void ConvertToBgra(const PixelLayout& layout, const std::uint8_t* source, std::uint8_t* destination,
                   std::size_t pixels);

} // namespace ZltApi::ImageTransform
