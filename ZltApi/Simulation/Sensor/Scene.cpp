// The drawing of the scene, pixel by pixel.
#include "Scene.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace Simulation
{

namespace
{

constexpr SceneColor ChartFrame{24, 24, 24};
constexpr SceneColor StructureBright{225, 225, 225};
constexpr SceneColor StructureDark{30, 30, 30};
constexpr double RampDarkest = 8.0;
constexpr double RampBrightest = 250.0;
constexpr std::uint32_t RampSteps = 16;
constexpr double StarSpokes = 24.0;
constexpr double DegreesOfHalfTurn = 180.0;
constexpr double Pi = 3.14159265358979323846;
// Line widths of the grating's bands in pixels: the finest is what a sensor behind a Bayer filter can just resolve.
constexpr std::array<std::uint32_t, 4> GratingLines{2, 3, 5, 8};
constexpr std::uint64_t DiscPixelsPerFrame = 3;

SceneColor Grey(double brightness)
{
    const auto value = static_cast<std::uint8_t>(std::lround(brightness));
    return {value, value, value};
}

} // namespace

Scene::Scene(std::uint32_t width, std::uint32_t height, SceneKind kind)
    : m_width(width),
      m_height(height),
      m_chart(Part(0.06, 0.08, 0.66, 0.72)),
      m_ramp(Part(0.06, 0.84, 0.94, 0.94)),
      m_star(Part(0.70, 0.08, 0.94, 0.42)),
      m_grating(Part(0.70, 0.46, 0.94, 0.72)),
      m_track(Part(0.06, 0.74, 0.94, 0.82))
{
    if (kind == SceneKind::Chart)
    {
        m_chart = Part(0.0, 0.0, 1.0, 1.0);
        m_track = {};
    }
}

SceneRect Scene::Part(double left, double top, double right, double bottom) const
{
    const auto at = [](double share, std::uint32_t size) { return static_cast<std::uint32_t>(share * size); };
    const std::uint32_t x = at(left, m_width);
    const std::uint32_t y = at(top, m_height);
    return {x, y, at(right, m_width) - x, at(bottom, m_height) - y};
}

SceneColor Scene::At(std::uint32_t x, std::uint32_t y) const
{
    if (m_chart.Contains(x, y))
    {
        return ChartAt(x, y);
    }
    if (m_ramp.Contains(x, y))
    {
        return RampAt(x, y);
    }
    if (m_star.Contains(x, y))
    {
        return StarAt(x, y);
    }
    if (m_grating.Contains(x, y))
    {
        return GratingAt(x, y);
    }
    return SceneBackground;
}

SceneRect Scene::PatchArea(std::size_t index) const
{
    assert(index < ChartPatches.size());
    const std::uint32_t cellWidth = m_chart.width / ChartColumns;
    const std::uint32_t cellHeight = m_chart.height / ChartRows;
    const std::uint32_t frame = std::min(cellWidth, cellHeight) / 12;
    const auto column = static_cast<std::uint32_t>(index % ChartColumns);
    const auto row = static_cast<std::uint32_t>(index / ChartColumns);
    return {m_chart.x + column * cellWidth + frame, m_chart.y + row * cellHeight + frame, cellWidth - 2 * frame,
            cellHeight - 2 * frame};
}

SceneColor Scene::ChartAt(std::uint32_t x, std::uint32_t y) const
{
    // What the division of the chart into cells leaves over at its right and lower edge is frame too.
    const std::uint32_t cellWidth = std::max(1U, m_chart.width / ChartColumns);
    const std::uint32_t cellHeight = std::max(1U, m_chart.height / ChartRows);
    const std::uint32_t column = std::min((x - m_chart.x) / cellWidth, ChartColumns - 1);
    const std::uint32_t row = std::min((y - m_chart.y) / cellHeight, ChartRows - 1);
    const std::size_t index = row * ChartColumns + column;
    return PatchArea(index).Contains(x, y) ? ChartPatches[index] : ChartFrame;
}

SceneColor Scene::RampAt(std::uint32_t x, std::uint32_t y) const
{
    const double share = static_cast<double>(x - m_ramp.x) / m_ramp.width;
    const bool stepped = y - m_ramp.y < m_ramp.height / 2;
    const double place = stepped ? std::floor(share * RampSteps) / (RampSteps - 1) : share;
    return Grey(RampDarkest + (RampBrightest - RampDarkest) * place);
}

SceneColor Scene::StarAt(std::uint32_t x, std::uint32_t y) const
{
    const double dx = x - m_star.x - m_star.width / 2.0;
    const double dy = y - m_star.y - m_star.height / 2.0;
    const double radius = std::min(m_star.width, m_star.height) / 2.0;
    if (dx * dx + dy * dy > radius * radius)
    {
        return SceneBackground;
    }
    const double degrees = std::atan2(dy, dx) * DegreesOfHalfTurn / Pi + DegreesOfHalfTurn;
    const auto sector = static_cast<unsigned>(degrees * StarSpokes / DegreesOfHalfTurn);
    return sector % 2 == 0 ? StructureBright : StructureDark;
}

SceneColor Scene::GratingAt(std::uint32_t x, std::uint32_t y) const
{
    // Upright lines in the upper half, lying ones in the lower half, each in bands from fine to coarse.
    const std::uint32_t dx = x - m_grating.x;
    const std::uint32_t dy = y - m_grating.y;
    const std::size_t band = dx * GratingLines.size() / m_grating.width;
    const std::uint32_t along = dy < m_grating.height / 2 ? dx : dy;
    return along / GratingLines[band] % 2 == 0 ? StructureBright : StructureDark;
}

SceneRect Scene::DiscArea(std::uint64_t frameNumber) const
{
    const std::uint32_t size = std::min(m_track.width, m_track.height);
    const std::uint64_t way = m_track.width - size;
    // There and back again.
    const std::uint64_t place = way == 0 ? 0 : frameNumber % (2 * way) * DiscPixelsPerFrame % (2 * way);
    const auto x = static_cast<std::uint32_t>(place <= way ? place : 2 * way - place);
    return {m_track.x + x, m_track.y + (m_track.height - size) / 2, size, size};
}

bool Scene::OnDisc(const SceneRect& area, std::uint32_t x, std::uint32_t y)
{
    const double dx = 2.0 * (x - area.x) + 1.0 - area.width;
    const double dy = 2.0 * (y - area.y) + 1.0 - area.height;
    return area.Contains(x, y) && dx * dx + dy * dy <= static_cast<double>(area.width) * area.width;
}

} // namespace Simulation
