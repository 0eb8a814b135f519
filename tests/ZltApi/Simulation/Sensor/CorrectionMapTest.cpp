// Replacement of listed pixels from their good neighbours.
#include "SensorTools.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Simulation
{

namespace
{

constexpr std::uint16_t Bad = 999;

Counts Grid(const std::string& text)
{
    std::istringstream words(text);
    Counts counts;
    for (std::string word; words >> word;)
    {
        counts.push_back(word == "#" ? Bad : static_cast<std::uint16_t>(std::stoi(word)));
    }
    return counts;
}

} // namespace

TEST(CorrectionMapTest, ReplacesFromNearestGoodPixels)
{
    struct Case
    {
        const char* name;
        ColorFilter filter;
        std::uint32_t width;
        const char* before; // a listed pixel is #
        const char* after;
    };
    for (const Case& c : {
             Case{"mean of four, rounded", ColorFilter::Mono, 3, "7 10 7  20 # 40  7 31 7", "7 10 7  20 25 40  7 31 7"},
             Case{"corner", ColorFilter::Mono, 2, "# 10  20 7", "15 10  20 7"},
             Case{"pair: nothing from the other one", ColorFilter::Mono, 4, "10 # # 20", "10 10 20 20"},
             Case{"whole column at the edge", ColorFilter::Mono, 3, "# 5 7  # 6 7", "5 5 7  6 6 7"},
             Case{"whole double row", ColorFilter::Mono, 2, "1 2  # #  # #  3 4", "1 2  1 2  3 4  3 4"},
             Case{"crossing lines", ColorFilter::Mono, 3, "10 # 30  # # #  30 # 50", "10 20 30  20 30 40  30 40 50"},
             Case{"the nearer side wins", ColorFilter::Mono, 5, "10 # # # 30", "10 10 20 30 30"},
             Case{"same colour only", ColorFilter::BayerRG, 3, "# 7 30  7 7 7  20 7 7", "25 7 30  7 7 7  20 7 7"},
             Case{"same colour, pair", ColorFilter::BayerGB, 6, "1 2 # # 5 6", "1 2 3 4 5 6"},
             Case{"no good pixel of the colour", ColorFilter::BayerGR, 2, "# 7", "999 7"},
             Case{"all bad", ColorFilter::Mono, 2, "# #", "999 999"},
         })
    {
        Counts raw = Grid(c.before);
        const auto height = static_cast<std::uint32_t>(raw.size() / c.width);
        // Outside, and each twice: neither may matter.
        std::vector<PixelPosition> pixels{{c.width, 0}, {0, height}, {~0U, ~0U}};
        for (std::uint32_t i = 0; i < 2 * raw.size(); ++i)
        {
            const auto place = static_cast<std::uint32_t>(i % raw.size());
            if (raw[place] == Bad)
            {
                pixels.push_back({place % c.width, place / c.width});
            }
        }
        const CorrectionMap correction(c.width, height, c.filter, pixels);
        EXPECT_EQ(correction.Size(), (pixels.size() - 3) / 2) << c.name;
        correction.Apply(raw);
        EXPECT_EQ(raw, Grid(c.after)) << c.name;
    }
}

} // namespace Simulation
