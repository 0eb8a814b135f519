// Replacement of listed pixels from their good neighbours.
#include "SensorTools.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

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
    constexpr ColorFilter Mono = ColorFilter::Mono;
    // A listed pixel is #.
    for (const auto& [name, filter, width, before, after] :
         std::vector<std::tuple<const char*, ColorFilter, std::uint32_t, const char*, const char*>>{
             {"mean of four, rounded", Mono, 3, "7 10 7  20 # 40  7 33 7", "7 10 7  20 26 40  7 33 7"},
             {"corner", Mono, 2, "# 10  20 7", "15 10  20 7"},
             {"pair: nothing from the other one", Mono, 4, "10 # # 20", "10 10 20 20"},
             {"whole column at the edge", Mono, 3, "# 5 7  # 6 7", "5 5 7  6 6 7"},
             {"whole double row", Mono, 2, "1 2  # #  # #  3 4", "1 2  1 2  3 4  3 4"},
             {"crossing lines", Mono, 3, "10 # 30  # # #  30 # 50", "10 20 30  20 30 40  30 40 50"},
             {"the nearer side wins", Mono, 5, "10 # # # 30", "10 10 20 30 30"},
             {"same colour only", ColorFilter::BayerRG, 3, "# 7 30  7 7 7  20 7 7", "25 7 30  7 7 7  20 7 7"},
             {"same colour, pair", ColorFilter::BayerGB, 6, "1 2 # # 5 6", "1 2 3 4 5 6"},
             {"no good pixel of the colour", ColorFilter::BayerGR, 2, "# 7", "999 7"},
             {"all bad", Mono, 2, "# #", "999 999"},
         })
    {
        Counts raw = Grid(before);
        const auto height = static_cast<std::uint32_t>(raw.size() / width);
        // Outside, and each twice: neither may matter.
        std::vector<PixelPosition> pixels{{width, 0}, {0, height}, {~0U, ~0U}};
        for (std::uint32_t i = 0; i < 2 * raw.size(); ++i)
        {
            const auto place = static_cast<std::uint32_t>(i % raw.size());
            if (raw[place] == Bad)
            {
                pixels.push_back({place % width, place / width});
            }
        }
        const CorrectionMap correction(width, height, filter, pixels);
        EXPECT_EQ(correction.Size(), (pixels.size() - 3) / 2) << name;
        correction.Apply(raw);
        EXPECT_EQ(raw, Grid(after)) << name;
    }
}

} // namespace Simulation
