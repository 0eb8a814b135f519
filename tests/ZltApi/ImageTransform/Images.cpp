// Small images for the conversion tests, made and read pixel by pixel.
#include "Images.h"

#include <gtest/gtest.h>

ZltImage Describe(const std::string& format, const Size& size, void* data)
{
    ZltImage image{};
    image.Size = sizeof image;
    EXPECT_EQ(ZltSetImageInfoFromString(format.c_str(), size.Width, size.Height, &image), ZltErrorSuccess) << format;
    image.Data = data;
    return image;
}

Bytes Pack(const Depth& depth, const std::vector<std::uint32_t>& values)
{
    const unsigned low = depth.Bits - 8;
    const auto position = [&](std::size_t pixel, unsigned bit) -> std::size_t
    {
        switch (depth.Form)
        {
        case Packing::Words:
            return pixel * 16 + bit;
        case Packing::Nibbles:
            return pixel / 2 * 24 + (bit < low ? 8 + pixel % 2 * 4 + bit : pixel % 2 * 16 + bit - low);
        default:
            return pixel * depth.Bits + bit;
        }
    };
    const unsigned stored = depth.Form == Packing::Words ? 16 : depth.Form == Packing::Nibbles ? 12 : depth.Bits;
    Bytes bytes((values.size() * stored + 7) / 8);
    for (std::size_t pixel = 0; pixel < values.size(); ++pixel)
    {
        for (unsigned bit = 0; bit < depth.Bits; ++bit)
        {
            const std::size_t at = position(pixel, bit);
            bytes.at(at / 8) = static_cast<std::uint8_t>(bytes.at(at / 8) | (values[pixel] >> bit & 1U) << at % 8);
        }
    }
    return bytes;
}

Colors Convert(const std::string& format, const Size& size, Bytes source,
               const std::vector<ZltTransformInfo>& parameters)
{
    Bytes converted(size.Pixels() * 4, 0xA5);
    const ZltImage from = Describe(format, size, source.data());
    ZltImage to = Describe("BGRA32", size, converted.data());
    EXPECT_EQ(from.BufferSize, source.size());
    EXPECT_EQ(to.BufferSize, converted.size());
    EXPECT_EQ(ZltImageTransform(&from, &to, parameters.data(), static_cast<std::uint32_t>(parameters.size())),
              ZltErrorSuccess);
    Colors colors(size.Pixels());
    for (std::size_t i = 0; i < colors.size(); ++i)
    {
        const std::uint8_t* const pixel = &converted.at(i * 4);
        colors[i] = static_cast<std::uint32_t>(pixel[0] | pixel[1] << 8U | pixel[2] << 16U);
        EXPECT_EQ(pixel[3], 255);
    }
    return colors;
}
