// Bayer mosaics: colours come out right for every mosaic and depth, up to the border.
#include "Images.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <thread>

namespace
{

// The colours of the four pixels of which each mosaic repeats, row by row.
constexpr const char* Tiles[] = {"GRBG", "RGGB", "GBRG", "BGGR"};

constexpr struct Depth
{
    const char* Suffix;
    unsigned Bits, Stored;   // of a pixel, and from pixel to pixel
    bool HasNibbles = false; // 3 bytes for 2 pixels, the low nibbles in the middle one
} Depths[] = {{"8", 8, 8},
              {"10", 10, 16},
              {"12", 12, 16},
              {"16", 16, 16},
              {"10p", 10, 10},
              {"10Packed", 10, 12, true},
              {"12Packed", 12, 12, true},
              {"12p", 12, 12}};

// Puts each bit of the mosaic's bytes, and random low bits below them, where the packing has it.
Bytes Pack(const Depth& depth, const Bytes& mosaic, std::mt19937& random)
{
    const unsigned low = depth.Bits - 8;
    const auto position = [&](std::size_t pixel, unsigned bit)
    {
        const std::size_t inPair = bit < low ? 8 + pixel % 2 * 4 + bit : pixel % 2 * 16 + bit - low;
        return depth.HasNibbles ? pixel / 2 * 24 + inPair : pixel * depth.Stored + bit;
    };
    Bytes packed((mosaic.size() * depth.Stored + 7) / 8);
    for (std::size_t pixel = 0; pixel < mosaic.size(); ++pixel)
    {
        const auto value = static_cast<unsigned>(mosaic[pixel] << low | static_cast<int>(random() % (1U << low)));
        for (unsigned bit = 0; bit < depth.Bits; ++bit)
        {
            const std::size_t at = position(pixel, bit);
            packed.at(at / 8) = static_cast<std::uint8_t>(packed.at(at / 8) | (value >> bit & 1U) << at % 8);
        }
    }
    return packed;
}

std::string FormatOf(const char* tile, const Depth& depth)
{
    return "Bayer" + std::string(tile, 2) + depth.Suffix;
}

unsigned ShiftAt(const char* tile, std::size_t x, std::size_t y)
{
    const char color = tile[y % 2 * 2 + x % 2];
    return color == 'R' ? 16 : color == 'G' ? 8 : 0;
}

// The mean of the same colour within reach of one pixel, written without regard to speed.
std::uint32_t InterpolatedAt(std::size_t x, std::size_t y, const char* tile, const Size& size, const Bytes& mosaic)
{
    unsigned sum[24] = {}; // by the colour's shift
    unsigned count[24] = {};
    for (std::size_t row = y > 0 ? y - 1 : 0; row <= y + 1 && row < size.Height; ++row)
    {
        for (std::size_t column = x > 0 ? x - 1 : 0; column <= x + 1 && column < size.Width; ++column)
        {
            const unsigned shift = ShiftAt(tile, column, row);
            sum[shift] += mosaic[row * size.Width + column];
            ++count[shift];
        }
    }
    std::uint32_t color = 0;
    for (const unsigned shift : {0U, 8U, 16U})
    {
        const bool isOwn = count[shift] == 0 || ShiftAt(tile, x, y) == shift;
        color |= (isOwn ? mosaic[y * size.Width + x] : (sum[shift] + count[shift] / 2) / count[shift]) << shift;
    }
    return color;
}

} // namespace

TEST(Bayer, InterpolatesAsThePlainFormDoes)
{
    const auto run = [](const Depth& depth)
    {
        std::mt19937 random(depth.Bits);
        for (const Size& size : {Size{1, 1}, Size{1, 4}, Size{5, 1}, Size{2, 2}, Size{3, 2}, Size{2, 7}, Size{3, 3},
                                 Size{67, 35}, Size{96, 64}})
        {
            for (const char* const tile : Tiles)
            {
                Bytes mosaic;
                Colors expected;
                std::generate_n(std::back_inserter(mosaic), size.Pixels(), [&] { return std::uint8_t(random()); });
                for (std::size_t i = 0; i < size.Pixels(); ++i)
                {
                    expected.push_back(InterpolatedAt(i % size.Width, i / size.Width, tile, size, mosaic));
                }
                EXPECT_EQ(Convert(FormatOf(tile, depth), size, Pack(depth, mosaic, random)), expected)
                    << FormatOf(tile, depth) << " " << size.Width << " x " << size.Height;
            }
        }
    };
    // At the same time: the room for reduced mosaics must not be shared.
    std::vector<std::thread> threads;
    for (const Depth& depth : Depths)
    {
        threads.emplace_back(run, depth);
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
}
