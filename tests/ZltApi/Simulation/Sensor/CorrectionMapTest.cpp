// Replacement of listed pixels from their good neighbours.
#include "CorrectionMap.h"

#include <gtest/gtest.h>

#include <string>

namespace Simulation
{

namespace
{

using Counts = std::vector<std::uint16_t>;

struct Case
{
    std::string name;
    ColorFilter filter;
    std::uint32_t width;
    std::uint32_t height;
    std::vector<PixelPosition> pixels;
    Counts before;
    Counts after;
};

// 999 marks what must vanish.
const std::vector<Case> Cases{
    {"lone pixel: the mean of four, rounded",
     ColorFilter::Mono,
     3,
     3,
     {{1, 1}},
     {7, 10, 7, 20, 999, 40, 7, 31, 7},
     {7, 10, 7, 20, 25, 40, 7, 31, 7}},
    {"corner", ColorFilter::Mono, 2, 2, {{0, 0}}, {999, 10, 20, 7}, {15, 10, 20, 7}},
    {"pair: nothing taken from the other bad one",
     ColorFilter::Mono,
     4,
     1,
     {{1, 0}, {2, 0}},
     {10, 999, 999, 20},
     {10, 10, 20, 20}},
    {"whole column at the edge", ColorFilter::Mono, 3, 2, {{0, 0}, {0, 1}}, {999, 5, 7, 999, 6, 7}, {5, 5, 7, 6, 6, 7}},
    {"whole double row",
     ColorFilter::Mono,
     2,
     4,
     {{0, 1}, {1, 1}, {0, 2}, {1, 2}},
     {1, 2, 999, 999, 999, 999, 3, 4},
     {1, 2, 1, 2, 3, 4, 3, 4}},
    {"whole row across whole column",
     ColorFilter::Mono,
     3,
     3,
     {{1, 0}, {1, 1}, {1, 2}, {0, 1}, {2, 1}},
     {10, 999, 30, 999, 999, 999, 30, 999, 50},
     {10, 20, 30, 20, 30, 40, 30, 40, 50}},
    {"the nearer side wins",
     ColorFilter::Mono,
     5,
     1,
     {{1, 0}, {2, 0}, {3, 0}, {1, 0}},
     {10, 999, 999, 999, 30},
     {10, 10, 20, 30, 30}},
    {"same colour only, twice as far",
     ColorFilter::BayerRG,
     5,
     3,
     {{2, 0}},
     {10, 7, 999, 7, 30, 7, 7, 7, 7, 7, 7, 7, 20, 7, 7},
     {10, 7, 20, 7, 30, 7, 7, 7, 7, 7, 7, 7, 20, 7, 7}},
    {"no good pixel of the colour left", ColorFilter::BayerGB, 2, 1, {{0, 0}}, {999, 7}, {999, 7}},
    {"all bad", ColorFilter::Mono, 2, 1, {{0, 0}, {1, 0}}, {999, 999}, {999, 999}},
    {"outside the sensor", ColorFilter::Mono, 2, 1, {{2, 0}, {0, 1}, {~0U, ~0U}}, {1, 2}, {1, 2}},
};

} // namespace

TEST(CorrectionMapTest, ReplacesFromNearestGoodPixels)
{
    for (const Case& c : Cases)
    {
        Counts raw = c.before;
        CorrectionMap(c.width, c.height, c.filter, c.pixels).Apply(raw);
        EXPECT_EQ(raw, c.after) << c.name;
    }
}

TEST(CorrectionMapTest, CountsDistinctPixels)
{
    EXPECT_EQ(CorrectionMap(4, 4, ColorFilter::Mono, {{1, 1}, {2, 1}, {1, 1}, {4, 0}}).Size(), 2U);
    EXPECT_EQ(CorrectionMap(4, 4, ColorFilter::Mono, {}).Size(), 0U);
}

TEST(CorrectionMapTest, OneGoodPixelServesAll)
{
    constexpr std::uint32_t Width = 700;
    constexpr std::uint32_t Height = 500;
    constexpr std::uint32_t Good = 123 * Width + 456;
    std::vector<PixelPosition> pixels;
    for (std::uint32_t i = 0; i < Width * Height; ++i)
    {
        if (i != Good)
        {
            pixels.push_back({i % Width, i / Width});
        }
    }
    Counts raw(Width * Height, 999);
    raw[Good] = 77;
    CorrectionMap(Width, Height, ColorFilter::Mono, pixels).Apply(raw);
    EXPECT_EQ(raw, Counts(raw.size(), 77));
}

} // namespace Simulation
