// What the simulated camera looks at: a colour chart, a grey ramp, fine structure, and a disc that wanders.
#pragma once

#include <array>
#include <cstdint>

namespace Simulation
{

// Brightness in the three colours. 255 gives SceneWhiteCounts at the reference exposure, so that an 8-bit colour image
// taken there shows these very numbers.
struct SceneColor
{
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

// 12-bit counts of a scene brightness of 255 at 10 ms and 0 dB.
constexpr double SceneWhiteCounts = 4080.0;

// Brightness that a pixel without filter sees.
constexpr double SceneLuminance(const SceneColor& color)
{
    return 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue;
}

constexpr std::uint32_t ChartColumns = 6;
constexpr std::uint32_t ChartRows = 4;
constexpr std::size_t ChartPatchCount = std::size_t{ChartColumns} * ChartRows;

// The chart's patches in row-major order: full colours, natural colours, and greys from white to black.
constexpr std::array<SceneColor, ChartPatchCount> ChartPatches{{
    {200, 40, 40},   {225, 125, 30},  {230, 205, 40},  {150, 190, 40},  {45, 140, 60},  {20, 140, 130}, // full
    {30, 150, 190},  {40, 100, 190},  {40, 50, 150},   {95, 55, 150},   {190, 60, 140}, {210, 110, 120},
    {110, 78, 62},   {205, 160, 140}, {100, 130, 165}, {85, 105, 60},   {150, 75, 55},  {215, 195, 150}, // natural
    {240, 240, 240}, {200, 200, 200}, {160, 160, 160}, {120, 120, 120}, {80, 80, 80},   {40, 40, 40},    // greys
}};

constexpr SceneColor SceneBackground{118, 118, 118};
constexpr SceneColor SceneDisc{235, 215, 90};

// A part of the scene, in sensor pixels.
struct SceneRect
{
    std::uint32_t x;
    std::uint32_t y;
    std::uint32_t width;
    std::uint32_t height;

    constexpr bool Contains(std::uint32_t px, std::uint32_t py) const
    {
        return px >= x && px - x < width && py >= y && py - y < height;
    }
};

enum class SceneKind
{
    Bench, // the chart among other things
    Chart  // the chart alone, over the whole sensor, and nothing moves
};

// The scene as it falls on a sensor of one size. Immutable: may be used from any thread.
class Scene
{
public:
    Scene(std::uint32_t width, std::uint32_t height, SceneKind kind = SceneKind::Bench);

    // The resting scene, without the disc.
    SceneColor At(std::uint32_t x, std::uint32_t y) const;

    // The area of one chart patch, without the frame around it. index counts ChartPatches.
    SceneRect PatchArea(std::size_t index) const;
    // The strip of the grey ramp: 16 steps in its upper half, a smooth run in its lower half, dark to bright.
    const SceneRect& RampArea() const { return m_ramp; }

    // The square around the disc at that frame; empty where there is none.
    SceneRect DiscArea(std::uint64_t frameNumber) const;
    // Whether a pixel of a disc area lies on the disc.
    static bool OnDisc(const SceneRect& area, std::uint32_t x, std::uint32_t y);

private:
    SceneRect Part(double left, double top, double right, double bottom) const;
    SceneColor ChartAt(std::uint32_t x, std::uint32_t y) const;
    SceneColor RampAt(std::uint32_t x, std::uint32_t y) const;
    SceneColor StarAt(std::uint32_t x, std::uint32_t y) const;
    SceneColor GratingAt(std::uint32_t x, std::uint32_t y) const;

    std::uint32_t m_width;
    std::uint32_t m_height;
    SceneRect m_chart;
    SceneRect m_ramp;
    SceneRect m_star;
    SceneRect m_grating;
    SceneRect m_track;
};

} // namespace Simulation
