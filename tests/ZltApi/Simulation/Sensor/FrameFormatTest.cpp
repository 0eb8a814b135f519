// Pixel formats against bytes written out by hand, mirrored and cropped images, interpolated colours.
#include "SensorTools.h"

#include <ZltApi/PixelFormat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace Simulation
{

namespace
{

constexpr std::array<ColorFilter, 4> BayerFilters{ColorFilter::BayerGR, ColorFilter::BayerRG, ColorFilter::BayerGB,
                                                  ColorFilter::BayerBG};

FrameGeometry Whole(std::uint32_t width, std::uint32_t height, bool reverseX = false, bool reverseY = false)
{
    return {width, height, 0, 0, width, height, reverseX, reverseY};
}

// Counts that show these values in 8 bits.
Counts FromBytes(const Bytes& bytes)
{
    Counts raw;
    std::transform(bytes.begin(), bytes.end(), std::back_inserter(raw), [](unsigned byte) { return byte << 4U; });
    return raw;
}

// The frame's bytes, and a proof that no more are written; empty when refused.
Bytes Format(const Counts& raw, ColorFilter filter, const FrameGeometry& geometry, std::uint32_t format)
{
    const std::uint64_t size = FrameSize(format, geometry.width, geometry.height);
    Bytes bytes(size + 4, 0xEE);
    EXPECT_FALSE(size != 0 && FormatFrame(raw, filter, geometry, format, bytes.data(), size - 1));
    const bool made = FormatFrame(raw, filter, geometry, format, bytes.data(), size);
    const auto untouched = bytes.begin() + static_cast<std::ptrdiff_t>(made ? size : 0);
    EXPECT_TRUE(std::all_of(untouched, bytes.end(), [](unsigned byte) { return byte == 0xEE; }));
    bytes.resize(made ? size : 0);
    return bytes;
}

} // namespace

// No bytes: refused.
TEST(FrameFormatTest, GivesTheseBytes)
{
    constexpr ColorFilter Mono = ColorFilter::Mono;
    constexpr ColorFilter BayerRG = ColorFilter::BayerRG;
    constexpr std::uint32_t Packed = ZltPixelFormatMono12Packed;
    const Counts two{0xABC, 0x123};
    const Counts six{0xABC, 0x123, 0x456, 0x789, 0xDEF, 0x012};
    const Counts grid = FromBytes({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}); // 4 x 3
    for (const auto& [format, filter, geometry, raw, bytes] :
         std::vector<std::tuple<std::uint32_t, ColorFilter, FrameGeometry, Counts, Bytes>>{
             {ZltPixelFormatMono8, Mono, Whole(3, 1), {0xABC, 0x00F, 0xFFF}, {0xAB, 0x00, 0xFF}},
             {ZltPixelFormatMono10, Mono, Whole(2, 1), {0xABC, 0xFFF}, {0xAF, 0x02, 0xFF, 0x03}},
             {ZltPixelFormatMono12, Mono, Whole(2, 1), two, {0xBC, 0x0A, 0x23, 0x01}},
             {Packed, Mono, Whole(2, 1), two, {0xAB, 0x3C, 0x12}},
             {Packed, Mono, Whole(1, 1), {0xABC}, {0xAB, 0x0C}},
             {Packed, Mono, Whole(3, 2), six, {0xAB, 0x3C, 0x12, 0x45, 0x96, 0x78, 0xDE, 0x2F, 0x01}},
             {ZltPixelFormatMono12p, Mono, Whole(2, 1), two, {0xBC, 0x3A, 0x12}},
             {ZltPixelFormatMono12p, Mono, Whole(1, 3), {0xABC, 0x123, 0x456}, {0xBC, 0x3A, 0x12, 0x56, 0x04}},
             {ZltPixelFormatMono10p, Mono, Whole(4, 1), {0xABC, 0x123, 0xFFF, 0}, {0xAF, 0x22, 0xF1, 0x3F, 0x00}},
             {ZltPixelFormatMono10p, Mono, Whole(1, 2), {0xFFF, 0x004}, {0xFF, 0x07, 0x00}},
             {ZltPixelFormatBayerRG10, BayerRG, Whole(2, 1), two, {0xAF, 0x02, 0x48, 0x00}},
             {ZltPixelFormatBayerRG12Packed, BayerRG, Whole(2, 1), two, {0xAB, 0x3C, 0x12}},
             {ZltPixelFormatMono8, Mono, {4, 3, 1, 1, 2, 2, false, false}, grid, {5, 6, 9, 10}},
             {ZltPixelFormatMono8, Mono, {4, 3, 0, 0, 3, 2, true, false}, grid, {3, 2, 1, 7, 6, 5}},
             {ZltPixelFormatMono8, Mono, {4, 3, 1, 0, 3, 1, true, true}, grid, {10, 9, 8}},
             {ZltPixelFormatMono8, Mono, {4, 3, 1, 0, 4, 3}, grid, {}},
             {ZltPixelFormatMono8, Mono, {4, 3, 0, ~0U, 4, 2}, grid, {}},
             {ZltPixelFormatMono8, Mono, Whole(4, 4), grid, {}},
             {ZltPixelFormatRGB8, Mono, Whole(4, 3), grid, {}},
             {ZltPixelFormatBayerRG8, Mono, Whole(4, 3), grid, {}},
             {0x01080099, Mono, Whole(4, 3), grid, {}},
         })
    {
        EXPECT_EQ(Format(raw, filter, geometry, format), bytes) << std::hex << format;
    }
}

// Every raw pixel tells its own colour: a reader must find it where the format's mosaic says.
TEST(FrameFormatTest, NamesTheMosaicOfTheMirroredRegion)
{
    for (unsigned variant = 0; variant < 256; ++variant)
    {
        const auto bit = [variant](unsigned n) { return variant >> n & 1U; };
        const FrameGeometry geometry{8 + bit(0), 6 + bit(1), bit(2), bit(3), 6, 4, bit(4) == 1, bit(5) == 1};
        const ColorFilter filter = BayerFilters[variant / 64];
        Bytes colors;
        for (std::uint32_t i = 0; i < geometry.sensorWidth * geometry.sensorHeight; ++i)
        {
            const ColorChannel color = FilterChannel(filter, i % geometry.sensorWidth, i / geometry.sensorWidth);
            colors.push_back(static_cast<unsigned char>(color));
        }
        const ColorFilter mosaic =
            ShiftedFilter(MirroredFilter(filter, 8 + bit(0), 6 + bit(1), geometry.reverseX, geometry.reverseY),
                          geometry.offsetX, geometry.offsetY);
        const Bytes bytes = Format(FromBytes(colors), filter, geometry, FrameFormats(mosaic).front());
        ASSERT_EQ(bytes.size(), 24U);
        for (std::uint32_t i = 0; i < bytes.size(); ++i)
        {
            EXPECT_EQ(bytes[i], static_cast<unsigned>(FilterChannel(mosaic, i % 6, i / 6))) << variant;
        }
        const std::uint32_t other = FrameFormats(ShiftedFilter(mosaic, 1, bit(0))).front();
        EXPECT_TRUE(Format(FromBytes(colors), filter, geometry, other).empty());
    }
    EXPECT_EQ(FilterChannel(ColorFilter::BayerGB, 0, 1), ColorChannel::Red);
}

TEST(FrameFormatTest, InterpolatesTheNearestNeighbours)
{
    const Counts raw = FromBytes({0x10, 0x30, 0x50, 0x30, //
                                  0x40, 0x20, 0x60, 0xA0, //
                                  0x10, 0x90, 0x50, 0x30});
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

    // Red 200, green 100, blue 50 all over; by the full-range formula Y is 124, U 86, V 182. A line of odd width ends
    // within a pair.
    const Counts orange = FromBytes({200, 100, 200, 100, 50, 100});
    const FrameGeometry line{3, 2, 0, 0, 3, 1};
    EXPECT_EQ(Format(orange, ColorFilter::BayerRG, line, ZltPixelFormatYUV422_8), (Bytes{124, 86, 124, 182, 124, 86}));
    EXPECT_EQ(Format(orange, ColorFilter::BayerRG, line, ZltPixelFormatYUV422_8_UYVY),
              (Bytes{86, 124, 182, 124, 86, 124}));
}

} // namespace Simulation
