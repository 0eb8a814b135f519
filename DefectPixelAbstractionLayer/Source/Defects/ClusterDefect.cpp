// A defect record: a set of pixels.
#include "ClusterDefect.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace KTR::DPC
{

ClusterDefect::ClusterDefect(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height)
    : m_pixels(std::size_t{width} * height, PixelDefect(x, y))
{
}

ClusterDefect::ClusterDefect(std::vector<PixelDefect> pixels) : m_pixels(std::move(pixels)) {}

SensorDefectType ClusterDefect::GetSensorDefectType() const
{
    return SensorDefectType::Cluster;
}

bool ClusterDefect::operator==(const SensorDefect& other) const
{
    if (other.GetSensorDefectType() != GetSensorDefectType())
    {
        return false;
    }
    const auto& theirs = static_cast<const ClusterDefect&>(other).m_pixels;
    return m_pixels.size() == theirs.size() &&
           std::all_of(m_pixels.begin(), m_pixels.end(),
                       [&theirs](const PixelDefect& pixel)
                       { return std::find(theirs.begin(), theirs.end(), pixel) != theirs.end(); });
}

} // namespace KTR::DPC
