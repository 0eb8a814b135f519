// How the pixels of each format lie in memory.
#pragma once

#include <cstdint>
#include <string_view>

namespace ZltApi::ImageTransform
{

enum class Encoding
{
    Byte,
    Word10, // one 16-bit little-endian word a pixel, of which the given number of low bits are used
    Word12,
    Word14,
    Word16,
    Packed, // 3 bytes for 2 pixels: high 8 bits of the first, low bits of both, high 8 bits of the second
    Lsb10,  // pixels follow one another bit by bit, low bits first: 4 pixels in 5 bytes
    Lsb12,  // the same with 2 pixels in 3 bytes
    Rgb,
    Bgr,
    Rgba,
    Bgra,
    Uyvy, // 2 pixels in 4 bytes
    Yuyv
};

// The colours of the first two pixels of the first row.
enum class Mosaic
{
    None,
    GR,
    RG,
    GB,
    BG
};

struct PixelLayout
{
    std::uint32_t Format; // a ZltPixelFormat
    std::string_view Name;
    Encoding Code;
    Mosaic Colors;

    std::uint32_t BitsPerPixel() const { return Format >> 16U & 0xFFU; }
};

// The name that the transform library has for its only destination, which is the format BGRa8.
constexpr std::string_view DestinationName = "BGRA32";

// Null for a format or name that is not known.
const PixelLayout* FindLayout(std::uint32_t format);
const PixelLayout* FindLayout(std::string_view name);

} // namespace ZltApi::ImageTransform
