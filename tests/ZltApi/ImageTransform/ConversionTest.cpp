// Grey and colour formats: exact pixels, packings, colour matrix.
#include "Images.h"

#include <gmock/gmock.h>

#include <tuple>

TEST(Conversion, GivesExactPixels)
{
    const std::tuple<const char*, Bytes, Colors> cases[] = {
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
        {"YUV422_8", {120, 10, 100, 200, 90, 240, 30, 0}, {0xDD6D00, 0xC95900, 0x008FFF, 0x0053E4}},
    };
    for (const auto& [format, pixels, colors] : cases)
    {
        const Size once{static_cast<std::uint32_t>(colors.size()), 1};
        const ZltImage image = Describe(format, once);
        // As often as makes whole blocks and a rest of them, unless the pixels end within a byte.
        const bool endsWithByte = image.BufferSize * 8 == colors.size() * image.BitsPerPixel;
        for (const std::uint32_t times : {1U, endsWithByte ? 101U : 1U})
        {
            Bytes source;
            Colors expected;
            for (std::uint32_t i = 0; i < times; ++i)
            {
                source.insert(source.end(), pixels.begin(), pixels.end());
                expected.insert(expected.end(), colors.begin(), colors.end());
            }
            EXPECT_EQ(Convert(format, {once.Width, times}, source), expected) << format;
        }
    }
}

TEST(Conversion, AppliesMatrices)
{
    const std::tuple<std::vector<float>, Bytes, std::uint32_t> cases[] = {
        {{0, 0, 1, 0, 1, 0, 1, 0, 0}, {0x10, 0x20, 0x30}, 0x302010},
        {{2, 0, 0, 0, 2, 0, 0, 0, 2}, {0x7F, 0x80, 0xFE}, 0xFEFFFF},
        {{1, 1, 1, -1, 1, 0, 0.5F, 0, 0.25F}, {0x10, 0x20, 0x04}, 0x341009},
        {{1e30F, 0, 0, -1e30F, 0, 0, 3e38F, -3e38F, 0}, {0xFF, 0xFF, 0x00}, 0xFF0000},
    };
    for (const auto& [matrix, from, to] : cases)
    {
        std::vector<ZltTransformInfo> parameters(2); // the first has no effect
        ASSERT_EQ(ZltSetColorCorrectionMatrix3x3(matrix.data(), &parameters[1]), ZltErrorSuccess);
        Bytes source;
        for (int i = 0; i < 35; ++i)
        {
            source.insert(source.end(), from.begin(), from.end());
        }
        EXPECT_THAT(Convert("RGB8", {7, 5}, source, parameters), testing::Each(to));
    }
}
