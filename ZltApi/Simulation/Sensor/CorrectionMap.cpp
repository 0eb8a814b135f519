// Finding the good neighbours of all listed pixels, in time proportional to their number.
#include "CorrectionMap.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace Simulation
{

namespace
{

constexpr std::uint32_t NoDistance = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t GoodPixel = 0; // in the slot table; others hold 1 + the place in the list of targets

} // namespace

CorrectionMap::CorrectionMap(std::uint32_t width, std::uint32_t height, ColorFilter filter,
                             const std::vector<PixelPosition>& pixels)
    : m_width(width),
      m_height(height)
{
    std::vector<std::uint32_t> targets;
    targets.reserve(pixels.size());
    for (const PixelPosition& pixel : pixels)
    {
        if (pixel.x < width && pixel.y < height)
        {
            targets.push_back(pixel.y * width + pixel.x);
        }
    }
    std::sort(targets.begin(), targets.end());
    targets.erase(std::unique(targets.begin(), targets.end()), targets.end());
    m_size = targets.size();
    if (targets.empty())
    {
        return;
    }
    // What finds no good pixel in its row and column finds a replaced one in the second round: the column of any good
    // pixel of that colour has been replaced by then. With no good pixel of a colour left there is nothing to take.
    std::vector<std::uint32_t> slots(static_cast<std::size_t>(width) * height, GoodPixel);
    m_replacements.reserve(targets.size());
    const std::vector<std::uint32_t> remaining = AddReplacements(slots, targets, SameColorStep(filter));
    AddReplacements(slots, remaining, SameColorStep(filter));
}

CorrectionMap::CorrectionMap(std::uint32_t width, std::uint32_t height, const std::vector<MaskedPixel>& pixels)
    : m_width(width),
      m_height(height)
{
    constexpr std::uint32_t Reach = 4; // pixels, each way
    for (const MaskedPixel& pixel : pixels)
    {
        const auto& [x, y] = pixel.position;
        if (x >= width || y >= height)
        {
            continue;
        }
        Replacement replacement{y * width + x, 0, {}};
        for (std::uint32_t place = 0; place <= 2 * Reach; ++place)
        {
            const std::uint32_t neighbour = x + place;
            const bool isUsable = (pixel.usable >> (2 * Reach - place) & 1U) != 0 && place != Reach;
            if (isUsable && neighbour >= Reach && neighbour - Reach < width)
            {
                replacement.sources[replacement.sourceCount++] = y * width + neighbour - Reach;
            }
        }
        if (replacement.sourceCount > 0)
        {
            m_replacements.push_back(replacement);
        }
    }
    m_size = m_replacements.size();
}

// Returns the targets for which no good pixel was found. The slot table comes in and goes out with all pixels good.
std::vector<std::uint32_t> CorrectionMap::AddReplacements(std::vector<std::uint32_t>& slots,
                                                          const std::vector<std::uint32_t>& targets, std::uint32_t step)
{
    const std::size_t count = targets.size();
    for (std::size_t i = 0; i < count; ++i)
    {
        slots[targets[i]] = static_cast<std::uint32_t>(i + 1);
    }
    // Distance to the nearest good pixel in each direction, in steps. A listed neighbour that was visited before knows
    // how far it is from there: the first two directions are walked forwards, the others backwards.
    enum Direction : std::size_t
    {
        Left,
        Up,
        Right,
        Down
    };
    std::vector<std::array<std::uint32_t, Directions>> distances(count);
    const auto visit = [&](std::size_t i, Direction direction, bool inside, std::uint32_t neighbour)
    {
        const std::uint32_t slot = inside ? slots[neighbour] : GoodPixel;
        const std::uint32_t beyond = slot == GoodPixel ? 0 : distances[slot - 1][direction];
        distances[i][direction] = !inside || beyond == NoDistance ? NoDistance : beyond + 1;
    };
    const std::uint32_t rowStep = step * m_width;
    for (std::size_t i = 0; i < count; ++i)
    {
        visit(i, Left, targets[i] % m_width >= step, targets[i] - step);
        visit(i, Up, targets[i] / m_width >= step, targets[i] - rowStep);
    }
    for (std::size_t i = count; i-- > 0;)
    {
        visit(i, Right, targets[i] % m_width + step < m_width, targets[i] + step);
        visit(i, Down, targets[i] / m_width + step < m_height, targets[i] + rowStep);
    }

    std::vector<std::uint32_t> remaining;
    for (std::size_t i = 0; i < count; ++i)
    {
        const auto& distance = distances[i];
        const std::uint32_t nearest = *std::min_element(distance.begin(), distance.end());
        if (nearest == NoDistance)
        {
            remaining.push_back(targets[i]);
            continue;
        }
        Replacement replacement{targets[i], 0, {}};
        const std::array<std::uint32_t, Directions> candidates{
            targets[i] - nearest * step, targets[i] - nearest * rowStep, targets[i] + nearest * step,
            targets[i] + nearest * rowStep};
        for (std::size_t direction = 0; direction < Directions; ++direction)
        {
            if (distance[direction] == nearest)
            {
                replacement.sources[replacement.sourceCount++] = candidates[direction];
            }
        }
        m_replacements.push_back(replacement);
    }
    for (const std::uint32_t target : targets)
    {
        slots[target] = GoodPixel;
    }
    return remaining;
}

void CorrectionMap::Apply(std::vector<std::uint16_t>& raw) const
{
    assert(raw.size() == static_cast<std::size_t>(m_width) * m_height);
    for (const Replacement& replacement : m_replacements)
    {
        assert(replacement.sourceCount != 0);
        std::uint32_t sum = replacement.sourceCount / 2;
        for (std::uint32_t i = 0; i < replacement.sourceCount; ++i)
        {
            sum += raw[replacement.sources[i]];
        }
        raw[replacement.target] = static_cast<std::uint16_t>(sum / replacement.sourceCount);
    }
}

} // namespace Simulation
