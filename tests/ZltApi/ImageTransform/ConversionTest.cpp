// Grey and colour formats: exact pixels, packings, colour matrix.
#include "Images.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>

using testing::ElementsAreArray;

TEST(Conversion, GivesExactPixels)
{
    const struct
    {
        const char* Format;
        Bytes Source;
        Colors Expected;
    } cases[] = {
        {"Mono8", {0x00, 0x7F, 0xFF}, {0x000000, 0x7F7F7F, 0xFFFFFF}},
        {"Mono10", {0xFF, 0x03, 0x04, 0x00, 0x03, 0x00}, {0xFFFFFF, 0x010101, 0x000000}},
        {"Mono10", {0xFF, 0xFF}, {0xFFFFFF}}, // more than 10 bits
        {"Mono12", {0xF0, 0x0F, 0x0F, 0x00, 0x12, 0x03}, {0xFFFFFF, 0x000000, 0x313131}},
        {"Mono14", {0xC0, 0x3F, 0x7F, 0x00}, {0xFFFFFF, 0x010101}},
        {"Mono16", {0xFF, 0x12, 0x00, 0x80}, {0x121212, 0x808080}},
        {"Mono10Packed", {0xAB, 0x32, 0xEF}, {0xABABAB, 0xEFEFEF}},
        {"Mono12Packed", {0xAB, 0xCD, 0xEF, 0x12, 0x0F}, {0xABABAB, 0xEFEFEF, 0x121212}},
        {"Mono10p", {0xAB, 0x56, 0xC5, 0x3F, 0x01}, {0xAAAAAA, 0x555555, 0xFFFFFF, 0x010101}},
        {"Mono12p", {0x34, 0xA2, 0x5B}, {0x232323, 0x5B5B5B}},
        {"RGB8", {1, 2, 3, 4, 5, 6}, {0x010203, 0x040506}},
        {"BGR8", {1, 2, 3, 4, 5, 6}, {0x030201, 0x060504}},
        {"RGBa8", {1, 2, 3, 77}, {0x010203}},
        {"BGRa8", {1, 2, 3, 77}, {0x030201}},
        {"YUV422_8_UYVY", {128, 50, 128, 200, 85, 76, 255, 76}, {0x323232, 0xC8C8C8, 0xFE0000, 0xFE0000}},
        {"YUV422_8", {76, 85, 0, 255, 255, 128, 255, 255}, {0xFE0000, 0xB20000, 0xFFA4FF, 0xFFA4FF}},
    };
    for (const auto& row : cases)
    {
        const Size size{static_cast<std::uint32_t>(row.Expected.size()), 1};
        EXPECT_THAT(Convert(row.Format, size, row.Source), ElementsAreArray(row.Expected)) << row.Format;
    }
}

TEST(Conversion, UnpacksEveryMonoFormat)
{
    std::mt19937 random(1);
    for (const Depth& depth : Depths)
    {
        for (const Size& size : {Size{1, 1}, Size{3, 5}, Size{33, 3}, Size{64, 4}, Size{97, 31}})
        {
            std::vector<std::uint32_t> values(size.Pixels());
            Colors expected(size.Pixels());
            std::generate(values.begin(), values.end(), [&] { return random() >> (32 - depth.Bits); });
            std::transform(values.begin(), values.end(), expected.begin(),
                           [&](std::uint32_t value) { return Grey(value >> (depth.Bits - 8)); });
            const std::string format = std::string("Mono") + depth.Suffix;
            EXPECT_EQ(Convert(format, size, Pack(depth, values)), expected) << format << " " << size.Width;
        }
    }
}

TEST(Conversion, ReadsEveryColorFormat)
{
    using Rgb = std::array<double, 3>;
    const auto yuv = [](int y, int u, int v) {
        return Rgb{y + 1.402 * (v - 128), y - 0.344136 * (u - 128) - 0.714136 * (v - 128), y + 1.772 * (u - 128)};
    };
    const struct
    {
        const char* Format;
        std::size_t BytesPerPixel;
        double Tolerance;
        std::function<Rgb(const std::uint8_t*, std::size_t)> Pixel; // of the image's first byte and the pixel's number
    } cases[] = {
        {"RGB8", 3, 0,
         [](auto* p, auto i) {
             return Rgb{0. + p[i * 3], 0. + p[i * 3 + 1], 0. + p[i * 3 + 2]};
         }},
        {"BGR8", 3, 0,
         [](auto* p, auto i) {
             return Rgb{0. + p[i * 3 + 2], 0. + p[i * 3 + 1], 0. + p[i * 3]};
         }},
        {"RGBa8", 4, 0,
         [](auto* p, auto i) {
             return Rgb{0. + p[i * 4], 0. + p[i * 4 + 1], 0. + p[i * 4 + 2]};
         }},
        {"BGRa8", 4, 0,
         [](auto* p, auto i) {
             return Rgb{0. + p[i * 4 + 2], 0. + p[i * 4 + 1], 0. + p[i * 4]};
         }},
        {"YUV422_8_UYVY", 2, 0.6, [&](auto* p, auto i) { return yuv(p[i * 2 + 1], p[i / 2 * 4], p[i / 2 * 4 + 2]); }},
        {"YUV422_8", 2, 0.6, [&](auto* p, auto i) { return yuv(p[i * 2], p[i / 2 * 4 + 1], p[i / 2 * 4 + 3]); }},
    };
    std::mt19937 random(2);
    const Size size{50, 41};
    for (const auto& row : cases)
    {
        Bytes source(size.Pixels() * row.BytesPerPixel);
        std::generate(source.begin(), source.end(), [&] { return static_cast<std::uint8_t>(random()); });
        const Colors colors = Convert(row.Format, size, source);
        for (std::size_t i = 0; i < colors.size(); ++i)
        {
            const Rgb rgb = row.Pixel(source.data(), i);
            for (unsigned channel = 0; channel < 3; ++channel)
            {
                ASSERT_NEAR(colors[i] >> (16 - channel * 8) & 0xFFU, std::clamp(rgb.at(channel), 0., 255.),
                            row.Tolerance)
                    << row.Format << " " << i;
            }
        }
    }
}

TEST(Conversion, AppliesMatrices)
{
    const std::vector<float> swapped = {0, 0, 1, 0, 1, 0, 1, 0, 0};
    const std::vector<float> doubled = {2, 0, 0, 0, 2, 0, 0, 0, 2};
    const struct
    {
        std::vector<std::vector<float>> Matrices;
        std::uint32_t From, To;
    } cases[] = {
        {{}, 0x102030, 0x102030},
        {{swapped}, 0x102030, 0x302010},
        {{doubled}, 0x7F80FE, 0xFEFFFF},
        {{{1, 1, 1, -1, 1, 0, 0.5F, 0, 0.25F}}, 0x102004, 0x341009},
        {{{1e30F, 0, 0, -1e30F, 0, 0, 3e38F, -3e38F, 0}}, 0xFFFF00, 0xFF0000},
        {{doubled, swapped, {0.5F, 0, 0, 0, 0.5F, 0, 0, 0, 1}}, 0x10C0FF, 0x808020},
    };
    for (const auto& row : cases)
    {
        std::vector<ZltTransformInfo> parameters(1); // the first has no effect
        for (const std::vector<float>& matrix : row.Matrices)
        {
            ASSERT_EQ(ZltSetColorCorrectionMatrix3x3(matrix.data(), &parameters.emplace_back()), ZltErrorSuccess);
        }
        const Size size{7, 5};
        Bytes source;
        for (std::size_t i = 0; i < size.Pixels(); ++i)
        {
            source.insert(source.end(),
                          {static_cast<std::uint8_t>(row.From >> 16U), static_cast<std::uint8_t>(row.From >> 8U),
                           static_cast<std::uint8_t>(row.From)});
        }
        EXPECT_THAT(Convert("RGB8", size, source, parameters), testing::Each(row.To)) << std::hex << row.From;
    }
}
