// Descriptors, and the arguments that are refused.
#include "Images.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

TEST(ImageCheck, DescribesFormats)
{
    const struct
    {
        const char* Name;
        std::uint32_t Format;
        Size Pixels;
        std::uint64_t BytesPerLine, BufferSize;
        std::uint32_t Bits;
    } cases[] = {
        {"Mono8", 0x01080001, {1936, 1216}, 1936, 2354176, 8},
        {"Mono14", 0x01100025, {3, 2}, 6, 12, 16},
        {"Mono10p", 0x010A0046, {3, 3}, 4, 12, 10},
        {"BayerBG12Packed", 0x010C002D, {3, 3}, 5, 14, 12},
        {"BayerGR10Packed", 0x010C0026, {2, 2}, 3, 6, 12},
        {"BayerRG12p", 0x010C0059, {4, 1}, 6, 6, 12},
        {"YUV422_8", 0x02100032, {4, 3}, 8, 24, 16},
        {"BGRA32", 0x02200017, {5, 2}, 20, 40, 32},
        {"Mono8", 0x01080001, {0x80000000U, 1}, 0x80000000U, 0x80000000U, 8},
    };
    for (const auto& row : cases)
    {
        for (const bool byName : {true, false})
        {
            ZltImage image{};
            image.Size = sizeof image;
            EXPECT_EQ(byName ? ZltSetImageInfoFromString(row.Name, row.Pixels.Width, row.Pixels.Height, &image)
                             : ZltSetImageInfoFromPixelFormat(row.Format, row.Pixels.Width, row.Pixels.Height, &image),
                      ZltErrorSuccess);
            EXPECT_EQ(image.PixelFormat, row.Format) << row.Name;
            EXPECT_EQ(image.BytesPerLine, row.BytesPerLine) << row.Name;
            EXPECT_EQ(image.BufferSize, row.BufferSize) << row.Name;
            EXPECT_EQ(image.BitsPerPixel, row.Bits) << row.Name;
            EXPECT_EQ(image.Data, nullptr);
        }
    }
}

TEST(ImageCheck, RefusesDescriptions)
{
    const auto set = [](const char* name, std::uint32_t width, std::uint32_t height, std::uint32_t size = 56)
    {
        ZltImage image{};
        image.Size = size;
        const ZltErrorType result = ZltSetImageInfoFromString(name, width, height, &image);
        EXPECT_EQ(image.BufferSize, 0U);
        return result;
    };
    EXPECT_EQ(set("Mono8", 0, 1), ZltErrorBadParameter);
    EXPECT_EQ(set("Mono8", 1, 0), ZltErrorBadParameter);
    EXPECT_EQ(set("Mono8", 1, 1, 48), ZltErrorBadParameter);
    EXPECT_EQ(set(nullptr, 1, 1), ZltErrorBadParameter);
    EXPECT_EQ(ZltSetImageInfoFromString("Mono8", 1, 1, nullptr), ZltErrorBadParameter);
    EXPECT_EQ(ZltSetImageInfoFromPixelFormat(ZltPixelFormatMono8, 1, 1, nullptr), ZltErrorBadParameter);
    EXPECT_EQ(set("", 1, 1), ZltErrorNotSupported);
    EXPECT_EQ(set("mono8", 1, 1), ZltErrorNotSupported);
    EXPECT_EQ(set("YUV422_8", 3, 1), ZltErrorInvalidValue);
    EXPECT_EQ(set("Mono8", 0xFFFFFFFF, 0xFFFFFFFF), ZltErrorInvalidValue);
    EXPECT_EQ(set("Mono16", 0x40000001, 1), ZltErrorInvalidValue);
    EXPECT_EQ(set("BGRA32", 0x10000, 0x10000), ZltErrorInvalidValue); // 2^34 bytes, none of them in the low 32 bits
}

TEST(ImageCheck, RefusesTransforms)
{
    struct Arguments
    {
        Bytes From = Bytes(64, 7);
        Bytes To = Bytes(64, 7);
        ZltImage Source = Describe("Mono8", {4, 4}, From.data());
        ZltImage Destination = Describe("BGRA32", {4, 4}, To.data());
        std::vector<ZltTransformInfo> Parameters = std::vector<ZltTransformInfo>(1);
        const ZltImage* SourcePointer = &Source;
        ZltImage* DestinationPointer = &Destination;
        bool NullParameters = false;
    };
    const std::pair<std::function<void(Arguments&)>, ZltErrorType> cases[] = {
        {[](Arguments&) {}, ZltErrorSuccess},
        {[](Arguments& a) { a.SourcePointer = nullptr; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.DestinationPointer = nullptr; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Source.Data = nullptr; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Destination.Data = nullptr; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Source.Size = 0; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Destination.Size = 57; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Source.Height = 0; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.NullParameters = true; }, ZltErrorBadParameter},
        {[](Arguments& a) { a.Source.PixelFormat = 0x01080002; }, ZltErrorNotSupported},
        {[](Arguments& a) {
             a.Destination = Describe("Mono8", {4, 4}, a.To.data());
         },
         ZltErrorNotSupported},
        {[](Arguments& a) { a.Parameters[0].Type = static_cast<ZltTransformType>(9); }, ZltErrorNotSupported},
        {[](Arguments& a) {
             a.Source = Describe("Mono8", {2, 8}, a.From.data());
         },
         ZltErrorInvalidValue},
        {[](Arguments& a) { a.Source.Height = 5; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Source.PixelFormat = ZltPixelFormatMono16; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Destination.BytesPerLine = 20; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Destination.BufferSize = 63; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Destination.BitsPerPixel = 24; }, ZltErrorInvalidValue},
        {[](Arguments& a) { a.Source.Data = a.To.data() + 63; }, ZltErrorInvalidValue},
        {[](Arguments& a) {
             a.Parameters[0] = {ZltTransformColorCorrectionMatrix, {0, 0, 0, NAN}};
         },
         ZltErrorInvalidValue},
    };
    int number = 0;
    for (const auto& [change, expected] : cases)
    {
        Arguments a;
        change(a);
        EXPECT_EQ(ZltImageTransform(a.SourcePointer, a.DestinationPointer,
                                    a.NullParameters ? nullptr : a.Parameters.data(), 1),
                  expected)
            << "case " << number++;
        EXPECT_EQ(a.To == Bytes(64, 7), expected != ZltErrorSuccess);
    }
    const float broken[9] = {std::numeric_limits<float>::infinity()};
    ZltTransformInfo info{};
    EXPECT_EQ(ZltSetColorCorrectionMatrix3x3(nullptr, &info), ZltErrorBadParameter);
    EXPECT_EQ(ZltSetColorCorrectionMatrix3x3(broken, nullptr), ZltErrorBadParameter);
    EXPECT_EQ(ZltSetColorCorrectionMatrix3x3(broken, &info), ZltErrorInvalidValue);
}
