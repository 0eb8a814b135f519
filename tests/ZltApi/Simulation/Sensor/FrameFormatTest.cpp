// Pixel formats against bytes written out by hand, mirrored and cropped images, interpolated colours.
#include "FrameFormat.h"

#include "Sensor.h"

#include <ZltApi/PixelFormat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

namespace Simulation
{

namespace
{

using Bytes = std::vector<unsigned char>;
using Counts = std::vector<std::uint16_t>;

constexpr std::array<ColorFilter, 4> BayerFilters{ColorFilter::BayerGR, ColorFilter::BayerRG, ColorFilter::BayerGB,
                                                  ColorFilter::BayerBG};

FrameGeometry Whole(std::uint32_t width, std::uint32_t height, bool reverseX = false, bool reverseY = false)
{
    return {width, height, 0, 0, width, height, reverseX, reverseY};
}

// The frame's bytes, and a proof that no more are written; empty when refused.
Bytes Format(const Counts& raw, ColorFilter filter, const FrameGeometry& geometry, std::uint32_t format)
{
    const std::uint64_t size = FrameSize(format, geometry.width, geometry.height);
    Bytes bytes(size + 4, 0xEE);
    if (!FormatFrame(raw, filter, geometry, format, bytes.data(), size))
    {
        EXPECT_EQ(bytes, Bytes(size + 4, 0xEE)) << "refused, but written";
        return {};
    }
    EXPECT_EQ(Bytes(bytes.end() - 4, bytes.end()), Bytes(4, 0xEE));
    bytes.resize(size);
    return bytes;
}

} // namespace

TEST(FrameFormatTest, PacksToTheByte)
{
    struct Case
    {
        std::uint32_t format;
        std::uint32_t width;
        std::uint32_t height;
        Counts raw;
        Bytes bytes;
    };
    const std::vector<Case> cases{
        {ZltPixelFormatMono8, 3, 1, {0xABC, 0x00F, 0xFFF}, {0xAB, 0x00, 0xFF}},
        {ZltPixelFormatMono10, 2, 1, {0xABC, 0xFFF}, {0xAF, 0x02, 0xFF, 0x03}},
        {ZltPixelFormatMono12, 2, 1, {0xABC, 0x123}, {0xBC, 0x0A, 0x23, 0x01}},
        {ZltPixelFormatMono12Packed, 2, 1, {0xABC, 0x123}, {0xAB, 0x3C, 0x12}},
        {ZltPixelFormatMono12Packed, 1, 1, {0xABC}, {0xAB, 0x0C}},
        {ZltPixelFormatMono12Packed,
         3,
         2,
         {0xABC, 0x123, 0x456, 0x789, 0xDEF, 0x012},
         {0xAB, 0x3C, 0x12, 0x45, 0x96, 0x78, 0xDE, 0x2F, 0x01}},
        {ZltPixelFormatMono12p, 2, 1, {0xABC, 0x123}, {0xBC, 0x3A, 0x12}},
        {ZltPixelFormatMono12p, 1, 3, {0xABC, 0x123, 0x456}, {0xBC, 0x3A, 0x12, 0x56, 0x04}},
        {ZltPixelFormatMono10p, 4, 1, {0xABC, 0x123, 0xFFF, 0x000}, {0xAF, 0x22, 0xF1, 0x3F, 0x00}},
        {ZltPixelFormatMono10p, 2, 1, {0xFFF, 0x004}, {0xFF, 0x07, 0x00}},
        {ZltPixelFormatBayerRG8, 2, 1, {0xABC, 0x123}, {0xAB, 0x12}},
        {ZltPixelFormatBayerRG10, 2, 1, {0xABC, 0xFFF}, {0xAF, 0x02, 0xFF, 0x03}},
        {ZltPixelFormatBayerRG12, 2, 1, {0xABC, 0x123}, {0xBC, 0x0A, 0x23, 0x01}},
        {ZltPixelFormatBayerRG12Packed, 2, 1, {0xABC, 0x123}, {0xAB, 0x3C, 0x12}},
    };
    for (const Case& c : cases)
    {
        const bool mono = (c.format & 0xFFU) < 8 || (c.format & 0xFFU) >= 0x46;
        EXPECT_EQ(Format(c.raw, mono ? ColorFilter::Mono : ColorFilter::BayerRG, Whole(c.width, c.height), c.format),
                  c.bytes)
            << std::hex << c.format << ", " << c.width << " x " << c.height;
    }
}

TEST(FrameFormatTest, CutsOutOfTheMirroredImage)
{
    // 4 x 3, numbered in reading order.
    Counts raw;
    for (std::uint16_t i = 0; i < 12; ++i)
    {
        raw.push_back(static_cast<std::uint16_t>(i << 4U));
    }
    const std::vector<std::pair<FrameGeometry, Bytes>> cases{
        {{4, 3, 1, 1, 2, 2, false, false}, {5, 6, 9, 10}},     {{4, 3, 0, 0, 4, 1, true, false}, {3, 2, 1, 0}},
        {{4, 3, 0, 0, 3, 2, true, false}, {3, 2, 1, 7, 6, 5}}, {{4, 3, 0, 0, 2, 2, false, true}, {8, 9, 4, 5}},
        {{4, 3, 1, 0, 3, 1, true, true}, {10, 9, 8}},          {{4, 3, 4, 3, 0, 0, true, true}, {}},
    };
    for (const auto& [geometry, bytes] : cases)
    {
        EXPECT_EQ(Format(raw, ColorFilter::Mono, geometry, ZltPixelFormatMono8), bytes);
    }
}

// Every raw pixel tells its own colour: a reader must find it where the format's mosaic says.
TEST(FrameFormatTest, NamesTheMosaicOfTheMirroredRegion)
{
    for (const ColorFilter filter : BayerFilters)
    {
        for (unsigned variant = 0; variant < 64; ++variant)
        {
            const auto bit = [variant](unsigned n) { return variant >> n & 1U; };
            const FrameGeometry geometry{8 + bit(0), 6 + bit(1), bit(2), bit(3), 6, 4, bit(4) == 1, bit(5) == 1};
            Counts raw;
            for (std::uint32_t i = 0; i < geometry.sensorWidth * geometry.sensorHeight; ++i)
            {
                const ColorChannel color = FilterChannel(filter, i % geometry.sensorWidth, i / geometry.sensorWidth);
                raw.push_back(static_cast<std::uint16_t>((static_cast<unsigned>(color) + 1) << 4U));
            }
            int accepted = 0;
            for (const ColorFilter mosaic : BayerFilters)
            {
                const Bytes bytes = Format(raw, filter, geometry, FrameFormats(mosaic).front());
                for (std::uint32_t i = 0; i < bytes.size(); ++i)
                {
                    EXPECT_EQ(bytes[i], static_cast<unsigned>(FilterChannel(mosaic, i % 6, i / 6)) + 1) << variant;
                }
                accepted += bytes.empty() ? 0 : 1;
                const bool even = geometry.offsetX == 0 && geometry.offsetY == 0;
                const bool named = mosaic == MirroredFilter(filter, geometry.sensorWidth, geometry.sensorHeight,
                                                            geometry.reverseX, geometry.reverseY);
                EXPECT_TRUE(!even || bytes.empty() != named);
            }
            EXPECT_EQ(accepted, 1);
        }
    }
}

TEST(FrameFormatTest, InterpolatesTheNearestNeighbours)
{
    // Red 0x10 and 0x50, blue 0x20 and 0xA0, green from 0x30 to 0x90; RG mosaic.
    const Bytes mosaic{0x10, 0x30, 0x50, 0x30, //
                       0x40, 0x20, 0x60, 0xA0, //
                       0x10, 0x90, 0x50, 0x30};
    Counts raw(mosaic.size());
    std::transform(mosaic.begin(), mosaic.end(), raw.begin(),
                   [](unsigned value) { return static_cast<std::uint16_t>(value << 4U); });
    const Bytes rgb = Format(raw, ColorFilter::BayerRG, Whole(4, 3), ZltPixelFormatRGB8);
    ASSERT_EQ(rgb.size(), 36U);
    const auto pixel = [&rgb](std::ptrdiff_t i) { return Bytes(rgb.begin() + 3 * i, rgb.begin() + 3 * i + 3); };
    EXPECT_EQ(pixel(0), (Bytes{0x10, 0x38, 0x20})) << "red corner: the mirror image goes on outside";
    EXPECT_EQ(pixel(1), (Bytes{0x30, 0x30, 0x20})) << "green in a red row, at the edge";
    EXPECT_EQ(pixel(5), (Bytes{0x30, 0x58, 0x20})) << "blue";
    EXPECT_EQ(pixel(6), (Bytes{0x50, 0x60, 0x60})) << "green in a blue row";
    EXPECT_EQ(pixel(11), (Bytes{0x50, 0x30, 0xA0})) << "green corner";

    Bytes bgr = Format(raw, ColorFilter::BayerRG, Whole(4, 3, true, true), ZltPixelFormatBGR8);
    std::reverse(bgr.begin(), bgr.end());
    EXPECT_EQ(bgr, rgb) << "mirrored both ways and blue first is the same backwards";

    // One grey and one pure red pixel: a pair shares the mean colour; an odd line ends within a pair.
    const Counts red(15, 0);
    EXPECT_EQ(Format(red, ColorFilter::BayerRG, Whole(5, 3), ZltPixelFormatYUV422_8).size(), 30U);
    const Counts grey(6, 0x808);
    EXPECT_EQ(Format(grey, ColorFilter::BayerRG, Whole(3, 2), ZltPixelFormatYUV422_8_UYVY),
              (Bytes{0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80}));
    // A flat field of red 0xFF: Y 76, U 85, V 255 by the full-range formula.
    const Counts pure{0xFFF, 0, 0xFFF, 0, 0, 0, 0, 0};
    EXPECT_EQ(Format(pure, ColorFilter::BayerRG, {4, 2, 0, 0, 2, 1}, ZltPixelFormatYUV422_8), (Bytes{76, 85, 76, 255}));
    EXPECT_EQ(Format(pure, ColorFilter::BayerRG, {4, 2, 0, 0, 2, 1}, ZltPixelFormatYUV422_8_UYVY),
              (Bytes{85, 76, 255, 76}));
}

TEST(FrameFormatTest, ShowsTheChartInItsColours)
{
    SensorConfig config;
    config.width = 480;
    config.height = 320;
    for (const ColorFilter filter : BayerFilters)
    {
        config.filter = filter;
        Sensor sensor(config);
        Counts raw;
        sensor.Expose({}, raw);
        std::vector<PixelPosition> faults;
        for (const PixelFault& fault : sensor.Faults())
        {
            faults.push_back({fault.x, fault.y});
        }
        CorrectionMap(480, 320, filter, faults).Apply(raw);
        for (const bool reverse : {false, true})
        {
            const Bytes bytes = Format(raw, filter, Whole(480, 320, reverse, reverse), ZltPixelFormatRGB8);
            for (std::size_t i = 0; i < ChartPatches.size(); ++i)
            {
                const SceneRect area = sensor.View().PatchArea(i);
                std::array<double, 3> mean{};
                for (std::uint32_t y = area.y + 2; y < area.y + area.height - 2; ++y)
                {
                    for (std::uint32_t x = area.x + 2; x < area.x + area.width - 2; ++x)
                    {
                        const std::uint32_t pixel = (reverse ? 319 - y : y) * 480 + (reverse ? 479 - x : x);
                        for (std::size_t channel = 0; channel < 3; ++channel)
                        {
                            mean[channel] += bytes[3 * pixel + channel];
                        }
                    }
                }
                const double pixels = (area.width - 4.0) * (area.height - 4.0);
                // The pedestal alone makes it 2 brighter.
                EXPECT_NEAR(mean[0] / pixels, ChartPatches[i].red, 2.5) << "patch " << i;
                EXPECT_NEAR(mean[1] / pixels, ChartPatches[i].green, 2.5) << "patch " << i;
                EXPECT_NEAR(mean[2] / pixels, ChartPatches[i].blue, 2.5) << "patch " << i;
            }
        }
    }
}

TEST(FrameFormatTest, RefusesWhatItCannotMake)
{
    const Counts raw(16, 0);
    struct Case
    {
        std::string name;
        ColorFilter filter;
        FrameGeometry geometry;
        std::uint32_t format;
        std::uint64_t size;
    };
    const FrameGeometry whole = Whole(4, 4);
    const std::vector<Case> cases{
        {"unknown format", ColorFilter::Mono, whole, 0x01080099, 1000},
        {"mono from a mosaic", ColorFilter::BayerRG, whole, ZltPixelFormatMono8, 1000},
        {"colour without filter", ColorFilter::Mono, whole, ZltPixelFormatRGB8, 1000},
        {"mosaic without filter", ColorFilter::Mono, whole, ZltPixelFormatBayerRG8, 1000},
        {"one byte too few", ColorFilter::Mono, whole, ZltPixelFormatMono8, 15},
        {"too wide", ColorFilter::Mono, {4, 4, 1, 0, 4, 4}, ZltPixelFormatMono8, 1000},
        {"offset wraps around", ColorFilter::Mono, {4, 4, 0, ~0U, 4, 2}, ZltPixelFormatMono8, 1000},
        {"fewer counts than pixels", ColorFilter::Mono, Whole(4, 5), ZltPixelFormatMono8, 1000},
    };
    for (const Case& c : cases)
    {
        Bytes bytes(1000);
        EXPECT_FALSE(FormatFrame(raw, c.filter, c.geometry, c.format, bytes.data(), c.size)) << c.name;
    }
    EXPECT_EQ(FrameSize(0x01080099, 4, 4), 0U);
    for (const ColorFilter filter : {ColorFilter::Mono, ColorFilter::BayerGR, ColorFilter::BayerBG})
    {
        for (const std::uint32_t format : FrameFormats(filter))
        {
            EXPECT_FALSE(Format(raw, filter, whole, format).empty()) << std::hex << format;
        }
    }
}

} // namespace Simulation
