// Features of the non-uniformity correction, and the pattern that it hides.
#include "Device/NonuniformityCorrection.h"

#include "Features/ValueNode.h"
#include "Sensor/Random.h"
#include "Sensor/Sensor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace Simulation
{

namespace
{

struct Dataset
{
    const char* mode;
    const char* description;
    double exposureUs;
};

constexpr std::array<Dataset, 3> Datasets{{
    {"Dataset1", "Factory dataset 1, exposure 1 ms", 1'000.0},
    {"Dataset2", "Factory dataset 2, exposure 10 ms", 10'000.0},
    {"Dataset3", "Factory dataset 3, exposure 100 ms", 100'000.0},
}};

constexpr double ColumnSpread = 0.08; // share by which the columns' sensitivity differs
constexpr int GainBits = 12;
constexpr std::uint64_t PatternStream = 3;

} // namespace

NonuniformityCorrection::NonuniformityCorrection(std::uint32_t width, std::uint64_t seed,
                                                 std::function<double()> exposureUs)
    : m_exposureUs(std::move(exposureUs))
{
    Random random(seed, PatternStream);
    m_columnGains.reserve(width);
    std::generate_n(std::back_inserter(m_columnGains), width,
                    [&random]
                    {
                        const double gain = random.Between(1.0 - ColumnSpread, 1.0 + ColumnSpread);
                        return static_cast<std::uint16_t>(std::lround(gain * (1 << GainBits)));
                    });
}

void NonuniformityCorrection::AddFeatures(FeatureMap& features)
{
    std::vector<EnumNode::Entry> modes{{"Off", 0, {}}, {"Auto", 1, {}}};
    for (const Dataset& dataset : Datasets)
    {
        modes.push_back({dataset.mode, static_cast<std::int64_t>(modes.size()), {}});
    }
    // There until a user has made one.
    modes.push_back({"UserDataset", static_cast<std::int64_t>(modes.size()), [] { return false; }});
    m_mode = &features.Add<EnumNode>("NUCMode", "Auto", std::move(modes));
    m_mode->KeepWhilePowered();
    auto& description = features.Add<StringNode>("NUCDatasetActiveDescription", std::string());
    description.OnRead([this] { return Description(); });
    description.ReadOnly();
}

std::size_t NonuniformityCorrection::DatasetInUse() const
{
    const std::string mode = m_mode->Current();
    const auto named =
        std::find_if(Datasets.begin(), Datasets.end(), [&](const Dataset& dataset) { return mode == dataset.mode; });
    if (named != Datasets.end())
    {
        return static_cast<std::size_t>(named - Datasets.begin());
    }
    const double exposure = std::log(m_exposureUs());
    const auto distance = [exposure](const Dataset& dataset)
    { return std::abs(std::log(dataset.exposureUs) - exposure); };
    const auto nearest =
        std::min_element(Datasets.begin(), Datasets.end(),
                         [&](const Dataset& a, const Dataset& b) { return distance(a) < distance(b); });
    return static_cast<std::size_t>(nearest - Datasets.begin());
}

std::string NonuniformityCorrection::Description() const
{
    return IsOff() ? "No dataset" : Datasets[DatasetInUse()].description;
}

void NonuniformityCorrection::Distort(std::vector<std::uint16_t>& raw) const
{
    const std::size_t width = m_columnGains.size();
    for (std::size_t row = 0; row + width <= raw.size(); row += width)
    {
        for (std::size_t x = 0; x < width; ++x)
        {
            const std::uint32_t product = std::uint32_t{raw[row + x]} * m_columnGains[x];
            raw[row + x] = static_cast<std::uint16_t>(std::min<std::uint32_t>(product >> GainBits, MaxCount));
        }
    }
}

} // namespace Simulation
