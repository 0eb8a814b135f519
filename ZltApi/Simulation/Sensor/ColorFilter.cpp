// Colour filter arithmetic, on the place of the red pixel in the mosaic's first 2 x 2 pixels.
#include "ColorFilter.h"

namespace Simulation
{

namespace
{

struct Phase
{
    std::uint32_t x;
    std::uint32_t y;
};

Phase RedPhase(ColorFilter filter)
{
    const bool redInSecondColumn = filter == ColorFilter::BayerGR || filter == ColorFilter::BayerBG;
    const bool redInSecondRow = filter == ColorFilter::BayerGB || filter == ColorFilter::BayerBG;
    return {redInSecondColumn ? 1U : 0U, redInSecondRow ? 1U : 0U};
}

} // namespace

ColorChannel FilterChannel(ColorFilter filter, std::uint32_t x, std::uint32_t y)
{
    if (filter == ColorFilter::Mono)
    {
        return ColorChannel::All;
    }
    const Phase red = RedPhase(filter);
    const bool redColumn = (x & 1U) == red.x;
    const bool redRow = (y & 1U) == red.y;
    if (redColumn != redRow)
    {
        return ColorChannel::Green;
    }
    return redRow ? ColorChannel::Red : ColorChannel::Blue;
}

ColorFilter ShiftedFilter(ColorFilter filter, std::uint32_t dx, std::uint32_t dy)
{
    if (filter == ColorFilter::Mono)
    {
        return filter;
    }
    const Phase red = RedPhase(filter);
    const std::uint32_t x = (red.x ^ dx) & 1U;
    const std::uint32_t y = (red.y ^ dy) & 1U;
    if (y == 0)
    {
        return x == 0 ? ColorFilter::BayerRG : ColorFilter::BayerGR;
    }
    return x == 0 ? ColorFilter::BayerGB : ColorFilter::BayerBG;
}

ColorFilter MirroredFilter(ColorFilter filter, std::uint32_t width, std::uint32_t height, bool reverseX, bool reverseY)
{
    // The last column of an even width shows the other phase, that of an odd width the first column's own.
    return ShiftedFilter(filter, reverseX && width % 2 == 0 ? 1 : 0, reverseY && height % 2 == 0 ? 1 : 0);
}

} // namespace Simulation
