// Small images for the conversion tests, made and read pixel by pixel.
#pragma once

#include "ZltImageTransform/ZltImageTransform.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;
using Colors = std::vector<std::uint32_t>; // 0xRRGGBB

struct Size
{
    std::uint32_t Width, Height;
    std::size_t Pixels() const { return std::size_t{Width} * Height; }
};

inline ZltImage Describe(const std::string& format, const Size& size, void* data = nullptr)
{
    ZltImage image{};
    image.Size = sizeof image;
    EXPECT_EQ(ZltSetImageInfoFromString(format.c_str(), size.Width, size.Height, &image), ZltErrorSuccess) << format;
    image.Data = data;
    return image;
}

// Converts, with each buffer exactly as large as it must be, and expects the fourth byte to be 255.
inline Colors Convert(const std::string& format, const Size& size, Bytes source,
                      const std::vector<ZltTransformInfo>& parameters = {})
{
    Bytes converted(size.Pixels() * 4, 0xA5);
    const ZltImage from = Describe(format, size, source.data());
    ZltImage to = Describe("BGRA32", size, converted.data());
    EXPECT_EQ(from.BufferSize, source.size());
    EXPECT_EQ(ZltImageTransform(&from, &to, parameters.data(), static_cast<std::uint32_t>(parameters.size())),
              ZltErrorSuccess);
    Colors colors;
    for (std::size_t i = 0; i < converted.size(); i += 4)
    {
        colors.push_back(converted[i] | static_cast<std::uint32_t>(converted[i + 1] << 8 | converted[i + 2] << 16));
        EXPECT_EQ(converted[i + 3], 255);
    }
    return colors;
}
