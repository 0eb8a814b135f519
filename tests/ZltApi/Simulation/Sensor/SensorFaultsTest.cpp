// The layout of seeded faults, and the generator behind it.
#include "SensorFaults.h"
#include "Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>

namespace Simulation
{

static bool operator==(const PixelFault& a, const PixelFault& b)
{
    return a.x == b.x && a.y == b.y && a.kind == b.kind && a.signal == b.signal;
}

namespace
{

// How many of the faults of that kind stand in each column and each row.
struct Lines
{
    std::map<std::uint32_t, std::uint32_t> columns;
    std::map<std::uint32_t, std::uint32_t> rows;

    Lines(const std::vector<PixelFault>& faults, FaultKind kind)
    {
        for (const PixelFault& fault : faults)
        {
            columns[fault.x] += fault.kind == kind ? 1 : 0;
            rows[fault.y] += fault.kind == kind ? 1 : 0;
        }
    }

    static std::size_t Full(const std::map<std::uint32_t, std::uint32_t>& lines, std::uint32_t size)
    {
        return static_cast<std::size_t>(
            std::count_if(lines.begin(), lines.end(), [size](const auto& line) { return line.second == size; }));
    }
};

// Sizes of the groups of touching hot pixels: width, height -> number of groups. Groups are rectangles.
std::map<std::pair<std::uint32_t, std::uint32_t>, int> HotGroups(const std::vector<PixelFault>& faults)
{
    std::map<std::pair<std::uint32_t, std::uint32_t>, bool> hot;
    for (const PixelFault& fault : faults)
    {
        hot[{fault.x, fault.y}] = fault.kind == FaultKind::Hot;
    }
    const auto isHot = [&hot](std::uint32_t x, std::uint32_t y)
    {
        const auto found = hot.find({x, y});
        return found != hot.end() && found->second;
    };
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> groups;
    for (const auto& [place, value] : hot)
    {
        const auto [x, y] = place;
        if (value && !isHot(x - 1, y) && !isHot(x, y - 1))
        {
            std::uint32_t width = 1;
            std::uint32_t height = 1;
            for (; isHot(x + width, y); ++width)
            {
            }
            for (; isHot(x, y + height); ++height)
            {
            }
            ++groups[{width, height}];
        }
    }
    return groups;
}

} // namespace

TEST(RandomTest, GivesTheKnownSequence)
{
    Random random(1234567);
    EXPECT_EQ(random.Next(), 6457827717110365317U);
    EXPECT_EQ(random.Next(), 3203168211198807973U);
    EXPECT_NE(Random(1, 2).Next(), Random(2, 1).Next());
    EXPECT_EQ(Random(3).Below(0), 0U);
}

TEST(SensorFaultsTest, LaysOutEveryShapeOfFault)
{
    constexpr std::uint32_t Width = 1936;
    constexpr std::uint32_t Height = 1216;
    for (std::uint64_t seed = 0; seed < 40; ++seed)
    {
        SCOPED_TRACE(seed);
        const std::vector<PixelFault> faults = SeedFaults(Width, Height, seed);
        EXPECT_TRUE(faults == SeedFaults(Width, Height, seed));
        EXPECT_FALSE(faults == SeedFaults(Width, Height, seed + 1));
        EXPECT_EQ(std::adjacent_find(faults.begin(), faults.end(),
                                     [](const PixelFault& a, const PixelFault& b)
                                     { return a.y > b.y || (a.y == b.y && a.x >= b.x); }),
                  faults.end())
            << "not in row-major order, or a pixel twice";

        const Lines hot(faults, FaultKind::Hot);
        const Lines dead(faults, FaultKind::Dead);
        const std::size_t upright = seed % 2;
        EXPECT_EQ(Lines::Full(hot.columns, Height), upright);
        EXPECT_EQ(Lines::Full(hot.rows, Width), 1 - upright);
        EXPECT_EQ(Lines::Full(dead.columns, Height - 1), 1 - upright) << "the pixel on the hot line is hot";
        EXPECT_EQ(Lines::Full(dead.rows, Width - 1), upright);

        auto groups = HotGroups(faults);
        const auto parts = [&groups](bool columns)
        {
            return std::count_if(groups.begin(), groups.end(),
                                 [columns](const auto& group)
                                 {
                                     return (columns ? group.first.second : group.first.first) >= 5 &&
                                            (columns ? group.first.second : group.first.first) <= 120;
                                 });
        };
        EXPECT_GE((groups[{1, 1}]), 24);
        EXPECT_EQ((groups[{2, 1}]), 3);
        EXPECT_EQ((groups[{1, 2}]), 3);
        EXPECT_EQ((groups[{2, 2}]), 1);
        EXPECT_GE(parts(true), 1);
        EXPECT_GE(parts(false), 1);
        const int total = std::accumulate(groups.begin(), groups.end(), 0,
                                          [](int sum, const auto& group) { return sum + group.second; });
        EXPECT_GE(total, 35);
        EXPECT_LE(total, 60);
        EXPECT_TRUE(faults.front().x == 0 && faults.front().y == 0) << "a hot corner";
    }
}

TEST(SensorFaultsTest, StaysOnSmallSensors)
{
    for (const auto& [width, height] : {std::pair{1U, 1U}, {1U, 40U}, {40U, 1U}, {5U, 7U}, {16U, 16U}, {64U, 48U}})
    {
        for (std::uint64_t seed = 0; seed < 50; ++seed)
        {
            for (const PixelFault& fault : SeedFaults(width, height, seed))
            {
                EXPECT_TRUE(fault.x < width && fault.y < height) << width << " x " << height << ", seed " << seed;
            }
        }
    }
}

} // namespace Simulation
