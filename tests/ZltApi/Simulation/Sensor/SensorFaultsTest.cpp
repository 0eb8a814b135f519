// The layout of seeded faults.
#include "SensorFaults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace Simulation
{

TEST(SensorFaultsTest, HasOneDeadRowAndColumnAndNoPixelTwice)
{
    constexpr std::uint32_t Width = 1936;
    constexpr std::uint32_t Height = 1216;
    for (std::uint64_t seed = 0; seed < 40; ++seed)
    {
        std::map<std::uint32_t, std::uint32_t> inColumn;
        std::map<std::uint32_t, std::uint32_t> inRow;
        std::uint32_t next = 0;
        for (const PixelFault& fault : SeedFaults(Width, Height, seed))
        {
            const std::uint32_t place = fault.y * Width + fault.x;
            ASSERT_GE(place, next) << "not in reading order, or twice";
            next = place + 1;
            ++inColumn[fault.x];
            ++inRow[fault.y];
        }
        const auto full = [](const auto& lines, std::uint32_t size)
        { return std::count_if(lines.begin(), lines.end(), [size](const auto& line) { return line.second == size; }); };
        EXPECT_EQ(full(inColumn, Height), 1) << seed;
        EXPECT_EQ(full(inRow, Width), 1);
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
