// The layout of seeded faults, and the generator behind it.
#include "SensorFaults.h"
#include "Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace Simulation
{

TEST(RandomTest, GivesTheKnownSequence)
{
    Random random(1234567);
    EXPECT_EQ(random.Next(), 6457827717110365317U);
    EXPECT_EQ(random.Next(), 3203168211198807973U);
    EXPECT_NE(Random(1, 2).Next(), Random(2, 1).Next());
}

TEST(SensorFaultsTest, LaysOutEveryShapeOfFault)
{
    constexpr std::uint32_t Width = 1936;
    constexpr std::uint32_t Height = 1216;
    constexpr std::uint32_t Nowhere = Width * (Height + 9);
    for (std::uint64_t seed = 0; seed < 40; ++seed)
    {
        std::map<std::uint32_t, std::uint32_t> inColumn;
        std::map<std::uint32_t, std::uint32_t> inRow;
        std::set<std::uint32_t> hot{Nowhere}; // places in reading order
        std::uint32_t next = 0;
        for (const PixelFault& fault : SeedFaults(Width, Height, seed))
        {
            const std::uint32_t place = fault.y * Width + fault.x;
            ASSERT_GE(place, next) << "not in reading order, or twice";
            next = place + 1;
            ++inColumn[fault.x];
            ++inRow[fault.y];
            hot.insert(fault.kind == FaultKind::Hot ? place : Nowhere);
        }
        const auto full = [](const auto& lines, std::uint32_t size)
        { return std::count_if(lines.begin(), lines.end(), [size](const auto& line) { return line.second == size; }); };
        EXPECT_EQ(full(inColumn, Height), 1) << seed;
        EXPECT_EQ(full(inRow, Width), 1);
        for (const std::uint32_t place : hot)
        {
            const auto lonely = [&](std::uint32_t step)
            { return hot.count(place + step) != 0 || hot.count(place + 2 * step) + hot.count(place + 4 * step) == 0; };
            EXPECT_TRUE(lonely(1) && lonely(Width)) << "two faults closer than 4 good pixels, seed " << seed;
        }
        const auto groups = std::count_if(hot.begin(), hot.end(),
                                          [&hot](std::uint32_t place)
                                          { return hot.count(place - 1) == 0 && hot.count(place - Width) == 0; });
        EXPECT_TRUE(groups >= 38 && groups <= 60) << groups;
    }
}

TEST(SensorFaultsTest, StaysOnSmallSensors)
{
    for (std::uint32_t variant = 0; variant < 2000; ++variant)
    {
        const std::uint32_t width = 1 + variant % 20;
        const std::uint32_t height = 1 + variant / 20 % 20;
        for (const PixelFault& fault : SeedFaults(width, height, variant))
        {
            EXPECT_TRUE(fault.x < width && fault.y < height) << width << " x " << height << ", seed " << variant;
        }
    }
}

} // namespace Simulation
