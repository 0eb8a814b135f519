// Descriptors, and the arguments that are refused.
#include "Images.h"

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <tuple>

TEST(ImageCheck, DescribesFormats)
{
    // Name, number, size, then bytes a line, bytes, and bits a pixel.
    const std::tuple<const char*, std::uint32_t, Size, std::uint64_t, std::uint64_t, std::uint32_t> cases[] = {
        {"Mono8", 0x01080001, {1936, 1216}, 1936, 2354176, 8},
        {"Mono14", 0x01100025, {3, 2}, 6, 12, 16},
        {"Mono10p", 0x010A0046, {3, 3}, 4, 12, 10},
        {"BayerBG12Packed", 0x010C002D, {3, 3}, 5, 14, 12},
        {"BayerRG12p", 0x010C0059, {4, 1}, 6, 6, 12},
        {"YUV422_8", 0x02100032, {4, 3}, 8, 24, 16},
        {"BGRA32", 0x02200017, {5, 2}, 20, 40, 32},
        {"Mono8", 0x01080001, {0x80000000U, 1}, 0x80000000U, 0x80000000U, 8},
    };
    for (const auto& [name, format, size, bytesPerLine, bytes, bits] : cases)
    {
        const ZltImage image = Describe(name, size);
        ZltImage same{};
        same.Size = sizeof same;
        EXPECT_EQ(ZltSetImageInfoFromPixelFormat(format, size.Width, size.Height, &same), 0);
        EXPECT_EQ(std::memcmp(&image, &same, sizeof same), 0) << name;
        EXPECT_EQ(std::tuple(image.BytesPerLine, image.BufferSize, image.BitsPerPixel),
                  std::tuple(bytesPerLine, bytes, bits))
            << name;
    }
}

TEST(ImageCheck, RefusesDescriptions)
{
    const std::tuple<const char*, std::uint32_t, std::uint32_t, ZltErrorType> cases[] = {
        {"Mono8", 0, 1, ZltErrorBadParameter},
        {"Mono8", 1, 0, ZltErrorBadParameter},
        {nullptr, 1, 1, ZltErrorBadParameter},
        {"", 1, 1, ZltErrorNotSupported},
        {"mono8", 1, 1, ZltErrorNotSupported},
        {"YUV422_8", 3, 1, ZltErrorInvalidValue},
        {"Mono8", 0x80000000, 0x80000000, ZltErrorInvalidValue}, // 2^65 bits
        {"Mono16", 0x40000001, 1, ZltErrorInvalidValue},
        {"BGRA32", 0x10000, 0x10000, ZltErrorInvalidValue}, // 2^34 bytes, none of them in the low 32 bits
    };
    ZltImage image{};
    image.Size = sizeof image - 8;
    EXPECT_EQ(ZltSetImageInfoFromString("Mono8", 1, 1, &image), ZltErrorBadParameter);
    image.Size = sizeof image;
    for (const auto& [name, width, height, expected] : cases)
    {
        EXPECT_EQ(ZltSetImageInfoFromString(name, width, height, &image), expected);
        EXPECT_EQ(image.BufferSize, 0U);
    }
    EXPECT_EQ(ZltSetImageInfoFromString("Mono8", 1, 1, nullptr), ZltErrorBadParameter);
    EXPECT_EQ(ZltSetImageInfoFromPixelFormat(ZltPixelFormatMono8, 1, 1, nullptr), ZltErrorBadParameter);
}

TEST(ImageCheck, RefusesTransforms)
{
    struct Arguments
    {
        Bytes From = Bytes(64, 7);
        Bytes To = Bytes(64, 7);
        ZltImage Source = Describe("Mono8", {4, 4}, From.data());
        ZltImage Destination = Describe("BGRA32", {4, 4}, To.data());
        ZltImage Narrow = Describe("Mono8", {2, 8}, From.data());
        ZltTransformInfo Parameter{ZltTransformColorCorrectionMatrix, {}};
        const ZltImage* SourcePointer = &Source;
        ZltImage* DestinationPointer = &Destination;
        ZltTransformInfo* ParameterPointer = &Parameter;
    };
    const std::pair<std::function<void(Arguments&)>, ZltErrorType> cases[] = {
        {[](Arguments&) {}, ZltErrorSuccess},
        {[](Arguments& a) { a.SourcePointer = nullptr; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.DestinationPointer = nullptr; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Source.Data = nullptr; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Destination.Size = 57; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Source.Height = 0; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.ParameterPointer = nullptr; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Source.PixelFormat = 0x01080002; }, ZltErrorNotSupported},
        {[](Arguments& a) { a.Destination.PixelFormat = ZltPixelFormatRGBa8; }, ZltErrorNotSupported},
        {[](Arguments& a) { a.Parameter.Type = static_cast<ZltTransformType>(9); }, ZltErrorNotSupported},
        {[](Arguments& a) { a.Source = a.Narrow; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Source.Height = 5; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Source.PixelFormat = ZltPixelFormatMono16; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Destination.BytesPerLine = 20; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Destination.BufferSize = 63; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Destination.BitsPerPixel = 24; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Source.Data = a.To.data() + 63; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Parameter.Matrix[8] = NAN; }, ZltErrorInvalidValue},
    };
    int number = 0;
    for (const auto& [change, expected] : cases)
    {
        Arguments a;
        change(a);
        EXPECT_EQ(ZltImageTransform(a.SourcePointer, a.DestinationPointer, a.ParameterPointer, 1), expected)
            << ++number;
        EXPECT_EQ(a.To == Bytes(64, 7), expected != ZltErrorSuccess);
    }
    const float broken[9] = {std::numeric_limits<float>::infinity()};
    ZltTransformInfo info{};
    EXPECT_EQ(ZltSetColorCorrectionMatrix3x3(nullptr, &info), ZltErrorBadParameter);
    EXPECT_EQ(ZltSetColorCorrectionMatrix3x3(broken, nullptr), ZltErrorBadParameter);
    EXPECT_EQ(ZltSetColorCorrectionMatrix3x3(broken, &info), ZltErrorInvalidValue);
}
