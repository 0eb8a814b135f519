// Laying out faults on a sensor so that none touches another.
#include "SensorFaults.h"

#include "Random.h"

#include <algorithm>

namespace Simulation
{

namespace
{

// Hot signals in 12-bit counts at the reference exposure: far above what noise reaches, below saturation.
constexpr double WeakestHot = 1760.0;
constexpr double StrongestHot = 3680.0;
constexpr double StrongestHotLine = 2400.0;
// How much the pixels of one fault differ.
constexpr double SignalSpread = 0.05;

constexpr std::uint32_t Clearance = 4;
constexpr std::uint32_t EdgeClearance = 2;
constexpr int PlacementAttempts = 100;

constexpr std::uint32_t HotSinglesBase = 20;
constexpr std::uint32_t DeadSinglesBase = 6;
constexpr std::uint32_t HotSinglesPerMegapixel = 4;
constexpr std::uint32_t DeadSinglesPerMegapixel = 1;
constexpr std::uint32_t Pairs = 3;     // in each direction
constexpr std::uint32_t LineParts = 3; // in each direction
constexpr std::uint32_t ShortestLinePart = 5;
constexpr std::uint32_t MegapixelShift = 20;

struct Area
{
    std::uint32_t x;
    std::uint32_t y;
    std::uint32_t width;
    std::uint32_t height;
};

bool Apart(std::uint32_t start, std::uint32_t size, std::uint32_t otherStart, std::uint32_t otherSize)
{
    return start >= otherStart + otherSize + Clearance || otherStart >= start + size + Clearance;
}

class Layout
{
public:
    Layout(std::uint32_t width, std::uint32_t height, std::uint64_t seed, std::uint32_t longestRun)
        : m_width(width),
          m_height(height),
          m_longestRun(longestRun),
          m_uprightHotLine(seed % 2 == 1),
          m_random(seed)
    {
    }

    std::vector<PixelFault> Make()
    {
        AddWholeLines();
        AddEdgePixels();
        const auto megapixels =
            static_cast<std::uint32_t>((static_cast<std::uint64_t>(m_width) * m_height) >> MegapixelShift);
        PlaceMany(LineParts, FaultKind::Hot, [this] { return Area{0, 0, 1, PartLength(m_height, LongestRun)}; });
        PlaceMany(m_longestRun < ShortestLinePart ? 0 : LineParts, FaultKind::Hot,
                  [this] {
                      return Area{0, 0, PartLength(m_width, m_longestRun), 1};
                  });
        PlaceMany(1, FaultKind::Dead, [this] { return Area{0, 0, 1, PartLength(m_height, LongestRun)}; });
        PlaceMany(m_longestRun < 2 ? 0 : 1, FaultKind::Hot, [] { return Area{0, 0, 2, 2}; });
        PlaceMany(m_longestRun < 2 ? 0 : Pairs, FaultKind::Hot, [] { return Area{0, 0, 2, 1}; });
        PlaceMany(Pairs, FaultKind::Hot, [] { return Area{0, 0, 1, 2}; });
        PlaceMany(HotSinglesBase + HotSinglesPerMegapixel * megapixels, FaultKind::Hot,
                  [] {
                      return Area{0, 0, 1, 1};
                  });
        PlaceMany(DeadSinglesBase + DeadSinglesPerMegapixel * megapixels, FaultKind::Dead,
                  [] {
                      return Area{0, 0, 1, 1};
                  });
        std::sort(m_faults.begin(), m_faults.end(),
                  [](const PixelFault& a, const PixelFault& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; });
        return std::move(m_faults);
    }

private:
    void AddWholeLines()
    {
        if (std::min(m_width, m_height) < 4 * Clearance)
        {
            return;
        }
        const Area column{Inside(m_width, 1), 0, 1, m_height};
        const Area row{0, Inside(m_height, 1), m_width, 1};
        const Area& hot = m_uprightHotLine ? column : row;
        const Area& dead = m_uprightHotLine ? row : column;
        Add(hot, FaultKind::Hot, m_random.Between(WeakestHot, StrongestHotLine));
        // Two pieces, since the hot line wins where they meet.
        if (m_uprightHotLine)
        {
            Add({0, dead.y, hot.x, 1}, FaultKind::Dead, 0.0);
            Add({hot.x + 1, dead.y, m_width - hot.x - 1, 1}, FaultKind::Dead, 0.0);
        }
        else
        {
            Add({dead.x, 0, 1, hot.y}, FaultKind::Dead, 0.0);
            Add({dead.x, hot.y + 1, 1, m_height - hot.y - 1}, FaultKind::Dead, 0.0);
        }
    }

    void AddEdgePixels()
    {
        const std::uint32_t right = m_width - 1;
        const std::uint32_t bottom = m_height - 1;
        for (const Area& area : {Area{0, 0, 1, 1}, Area{right, bottom, 1, 1}, Area{Inside(m_width, 1), 0, 1, 1},
                                 Area{Inside(m_width, 1), bottom, 1, 1}, Area{0, Inside(m_height, 1), 1, 1},
                                 Area{right, Inside(m_height, 1), 1, 1}})
        {
            if (IsFree(area))
            {
                Add(area, FaultKind::Hot, m_random.Between(WeakestHot, StrongestHot));
            }
        }
    }

    template <typename Shape> void PlaceMany(std::uint32_t count, FaultKind kind, const Shape& shape)
    {
        for (std::uint32_t i = 0; i < count; ++i)
        {
            Area area = shape();
            for (int attempt = 0; attempt < PlacementAttempts; ++attempt)
            {
                area.x = Inside(m_width, area.width);
                area.y = Inside(m_height, area.height);
                if (IsFree(area))
                {
                    Add(area, kind, kind == FaultKind::Hot ? m_random.Between(WeakestHot, StrongestHot) : 0.0);
                    break;
                }
            }
        }
    }

    // A place for something of that length, clear of the edges; the edge itself where there is no such place.
    std::uint32_t Inside(std::uint32_t size, std::uint32_t length)
    {
        const std::uint32_t taken = length + 2 * EdgeClearance;
        return size > taken ? EdgeClearance + m_random.Below(size - taken + 1) : 0;
    }

    std::uint32_t PartLength(std::uint32_t size, std::uint32_t most)
    {
        const std::uint32_t longest = std::clamp(size / 4, ShortestLinePart, most);
        return ShortestLinePart + m_random.Below(longest - ShortestLinePart + 1);
    }

    [[nodiscard]] bool IsFree(const Area& area) const
    {
        return area.x + area.width <= m_width && area.y + area.height <= m_height &&
               std::all_of(m_taken.begin(), m_taken.end(),
                           [&](const Area& other) {
                               return Apart(area.x, area.width, other.x, other.width) ||
                                      Apart(area.y, area.height, other.y, other.height);
                           });
    }

    void Add(const Area& area, FaultKind kind, double signal)
    {
        m_taken.push_back(area);
        for (std::uint32_t y = area.y; y < area.y + area.height; ++y)
        {
            for (std::uint32_t x = area.x; x < area.x + area.width; ++x)
            {
                const double own = signal * m_random.Between(1.0 - SignalSpread, 1.0 + SignalSpread);
                m_faults.push_back({x, y, kind, own});
            }
        }
    }

    std::uint32_t m_width;
    std::uint32_t m_height;
    std::uint32_t m_longestRun;
    bool m_uprightHotLine;
    Random m_random;
    std::vector<Area> m_taken;
    std::vector<PixelFault> m_faults;
};

} // namespace

std::vector<PixelFault> SeedFaults(std::uint32_t width, std::uint32_t height, std::uint64_t seed,
                                   std::uint32_t longestRun)
{
    return Layout(width, height, seed, longestRun).Make();
}

} // namespace Simulation
