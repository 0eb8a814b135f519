// The colour filter on a sensor: which colour each pixel sees, and how mirroring and cropping move the mosaic.
#pragma once

#include <cstdint>

namespace Simulation
{

// A Bayer filter is named after the first two pixels of its first row.
enum class ColorFilter
{
    Mono,
    BayerGR,
    BayerRG,
    BayerGB,
    BayerBG
};

enum class ColorChannel
{
    Red,
    Green,
    Blue,
    All // no filter in front of the pixel
};

// The colour that the pixel at (x, y) sees, counted from the mosaic's first pixel.
ColorChannel FilterChannel(ColorFilter filter, std::uint32_t x, std::uint32_t y);

// The mosaic that begins dx pixels to the right and dy pixels below the filter's first pixel.
ColorFilter ShiftedFilter(ColorFilter filter, std::uint32_t dx, std::uint32_t dy);

// The colour filter that a reader of the mirrored image sees. width and height are those of the whole sensor.
ColorFilter MirroredFilter(ColorFilter filter, std::uint32_t width, std::uint32_t height, bool reverseX, bool reverseY);

// Distance in pixels between neighbours of the same colour, along a row or a column.
constexpr std::uint32_t SameColorStep(ColorFilter filter)
{
    return filter == ColorFilter::Mono ? 1 : 2;
}

} // namespace Simulation
