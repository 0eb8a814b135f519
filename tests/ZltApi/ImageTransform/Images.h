// Small images for the conversion tests, made and read pixel by pixel.
#pragma once

#include "ZltImageTransform/ZltImageTransform.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;
using Colors = std::vector<std::uint32_t>; // 0xRRGGBB

enum class Packing
{
    Words,
    Nibbles, // 3 bytes for 2 pixels
    Bits
};

// One way to store grey or mosaic pixels, by the end of its formats' names.
struct Depth
{
    const char* Suffix;
    unsigned Bits;
    Packing Form;
};

constexpr Depth Depths[] = {
    {"8", 8, Packing::Bits},    {"10", 10, Packing::Words},         {"12", 12, Packing::Words},
    {"14", 14, Packing::Words}, {"16", 16, Packing::Words},         {"10Packed", 10, Packing::Nibbles},
    {"10p", 10, Packing::Bits}, {"12Packed", 12, Packing::Nibbles}, {"12p", 12, Packing::Bits}};

struct Size
{
    std::uint32_t Width, Height;
    std::size_t Pixels() const { return std::size_t{Width} * Height; }
};

ZltImage Describe(const std::string& format, const Size& size, void* data = nullptr);

// Puts each bit of the values where the packing has it.
Bytes Pack(const Depth& depth, const std::vector<std::uint32_t>& values);

// Converts, with each buffer exactly as large as it must be, and expects the fourth byte to be 255.
Colors Convert(const std::string& format, const Size& size, Bytes source,
               const std::vector<ZltTransformInfo>& parameters = {});

inline std::uint32_t Grey(std::uint32_t value)
{
    return value * 0x010101U;
}
