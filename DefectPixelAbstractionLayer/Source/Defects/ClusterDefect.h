// A defect record: a set of pixels.
#pragma once

#include "PixelDefect.h"

#include <cstdint>
#include <vector>

namespace KTR::DPC
{

class ClusterDefect final : public SensorDefect
{
public:
    // Holds width times height copies of the one pixel (x, y): the count tells the area, the pixels tell the corner.
    // Allocates as many pixels, so a size that comes from outside is checked against the sensor first.
    ClusterDefect(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height);
    explicit ClusterDefect(std::vector<PixelDefect> pixels);

    SensorDefectType GetSensorDefectType() const override;
    // The same number of pixels, and each pixel of this cluster is somewhere in the other: neither order nor how often
    // a pixel is listed counts.
    bool operator==(const SensorDefect& other) const override;

    std::vector<PixelDefect> getPixels() const { return m_pixels; }

private:
    std::vector<PixelDefect> m_pixels;
};

} // namespace KTR::DPC
