// Bayer mosaics: colours come out right for every mosaic and depth, up to the border.
#include "Images.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

// The colours of the four pixels of which each mosaic repeats, row by row.
constexpr const char* Tiles[] = {"GRBG", "RGGB", "GBRG", "BGGR"};

unsigned ShiftAt(const char* tile, std::uint32_t x, std::uint32_t y)
{
    const char color = tile[y % 2 * 2 + x % 2];
    return color == 'R' ? 16 : color == 'G' ? 8 : 0;
}

// The mean of the same colour within reach of one pixel, written without regard to speed.
Colors Interpolated(const char* tile, const Size& size, const Bytes& mosaic)
{
    Colors colors;
    for (std::uint32_t y = 0; y < size.Height; ++y)
    {
        for (std::uint32_t x = 0; x < size.Width; ++x)
        {
            const unsigned own = mosaic[y * size.Width + x];
            std::uint32_t color = 0;
            for (const unsigned shift : {0U, 8U, 16U})
            {
                unsigned sum = 0;
                unsigned count = 0;
                for (std::uint32_t row = y > 0 ? y - 1 : 0; row <= y + 1 && row < size.Height; ++row)
                {
                    for (std::uint32_t column = x > 0 ? x - 1 : 0; column <= x + 1 && column < size.Width; ++column)
                    {
                        const bool counts = ShiftAt(tile, column, row) == shift;
                        sum += counts ? mosaic[row * size.Width + column] : 0;
                        count += counts ? 1 : 0;
                    }
                }
                const bool keeps = count == 0 || ShiftAt(tile, x, y) == shift;
                color |= (keeps ? own : (sum + count / 2) / count) << shift;
            }
            colors.push_back(color);
        }
    }
    return colors;
}

// The 8-bit mosaic of an image, and the same with random low bits in the given depth.
Bytes Mosaic(const char* tile, const Size& size, const Colors& scene)
{
    Bytes mosaic;
    for (std::uint32_t i = 0; i < size.Pixels(); ++i)
    {
        mosaic.push_back(static_cast<std::uint8_t>(scene[i] >> ShiftAt(tile, i % size.Width, i / size.Width)));
    }
    return mosaic;
}

Bytes Deepen(const Depth& depth, const Bytes& mosaic, std::mt19937& random)
{
    std::vector<std::uint32_t> values;
    for (const std::uint32_t byte : mosaic)
    {
        values.push_back(byte << (depth.Bits - 8) |
                         (static_cast<std::uint32_t>(random()) & ((1U << (depth.Bits - 8)) - 1)));
    }
    return Pack(depth, values);
}

std::string FormatOf(const char* tile, const Depth& depth)
{
    return "Bayer" + std::string(tile, 2) + depth.Suffix;
}

} // namespace

TEST(Bayer, KeepsColorsOfChart)
{
    constexpr std::uint32_t Patch = 6;
    const Colors patches = {0xC82814, 0x14C828, 0x2814C8, 0xFFFFFF, 0x000000, 0xE6C81E, 0xB43C96, 0x1EAAC8};
    const Size size{Patch * 4, Patch * 2};
    Colors chart;
    for (std::uint32_t i = 0; i < size.Pixels(); ++i)
    {
        chart.push_back(patches[i / size.Width / Patch * 4 + i % size.Width / Patch]);
    }
    // Beside another patch colours mix; at the image's own border they must not.
    const auto isMixed = [&](std::uint32_t position, std::uint32_t end)
    { return (position % Patch == 0 && position != 0) || (position % Patch == Patch - 1 && position != end - 1); };
    std::mt19937 random(3);
    for (const char* const tile : Tiles)
    {
        for (const Depth& depth : Depths)
        {
            if (depth.Bits == 14)
            {
                continue; // no such format
            }
            const Bytes source = Deepen(depth, Mosaic(tile, size, chart), random);
            const Colors colors = Convert(FormatOf(tile, depth), size, source);
            for (std::uint32_t i = 0; i < size.Pixels(); ++i)
            {
                if (!isMixed(i % size.Width, size.Width) && !isMixed(i / size.Width, size.Height))
                {
                    ASSERT_EQ(colors[i], chart[i]) << FormatOf(tile, depth) << " at " << i;
                }
            }
        }
    }
}

TEST(Bayer, InterpolatesAsThePlainFormDoes)
{
    const auto run = [](std::uint32_t seed)
    {
        std::mt19937 random(seed);
        for (const Size& size : {Size{1, 1}, Size{1, 4}, Size{5, 1}, Size{2, 2}, Size{3, 2}, Size{2, 7}, Size{3, 3},
                                 Size{67, 35}, Size{96, 64}})
        {
            for (const char* const tile : Tiles)
            {
                Bytes mosaic(size.Pixels());
                for (std::uint8_t& byte : mosaic)
                {
                    byte = static_cast<std::uint8_t>(random());
                }
                const Depth& depth = Depths[seed];
                EXPECT_EQ(Convert(FormatOf(tile, depth), size, Deepen(depth, mosaic, random)),
                          Interpolated(tile, size, mosaic))
                    << FormatOf(tile, depth) << " " << size.Width << " x " << size.Height;
            }
        }
    };
    // At the same time: the room for reduced mosaics must not be shared.
    std::thread other(run, 2);
    run(0);
    run(7);
    other.join();
}
