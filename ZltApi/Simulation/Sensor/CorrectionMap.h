// The camera's own defect correction: listed pixels take the values of good neighbours.
#pragma once

#include "ColorFilter.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Simulation
{

// In sensor coordinates.
struct PixelPosition
{
    std::uint32_t x;
    std::uint32_t y;
};

// A pixel with the pixels of its row that may stand in for it: bit 4 - d for the one d columns to the right, d from -4
// to 4. Bit 4, the pixel itself, has no meaning.
struct MaskedPixel
{
    PixelPosition position;
    std::uint32_t usable;
};

// The pixels that the camera hides, made ready for use on frames: each takes the mean of its nearest good pixels of the
// same colour in the four directions. A pixel whose row and column hold no good one takes its nearest already replaced
// ones. Positions outside the sensor are ignored. Immutable once made: may be used from any thread.
class CorrectionMap
{
public:
    CorrectionMap(std::uint32_t width, std::uint32_t height, ColorFilter filter,
                  const std::vector<PixelPosition>& pixels);
    // Each pixel takes the mean of its usable neighbours on the sensor, whatever they are, and stays as it is without
    // one.
    CorrectionMap(std::uint32_t width, std::uint32_t height, const std::vector<MaskedPixel>& pixels);

    // Number of distinct pixels that are hidden.
    std::size_t Size() const { return m_size; }
    // Replaces the listed pixels of a raw frame in sensor coordinates, width x height counts.
    void Apply(std::vector<std::uint16_t>& raw) const;

private:
    static constexpr std::size_t Directions = 4;
    static constexpr std::size_t MaxSources = 8;

    // Indices into the frame.
    struct Replacement
    {
        std::uint32_t target;
        std::uint32_t sourceCount;
        std::array<std::uint32_t, MaxSources> sources;
    };

    std::vector<std::uint32_t> AddReplacements(std::vector<std::uint32_t>& slots,
                                               const std::vector<std::uint32_t>& targets, std::uint32_t step);

    std::uint32_t m_width;
    std::uint32_t m_height;
    std::size_t m_size = 0;
    std::vector<Replacement> m_replacements; // in the order of their application
};

} // namespace Simulation
