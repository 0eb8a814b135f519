// The seeded faults of a simulated sensor.
#pragma once

#include <cstdint>
#include <vector>

namespace Simulation
{

enum class FaultKind
{
    Hot, // adds signal in the dark, more with exposure, gain and temperature
    Dead // gives no signal, dark or lit
};

// A faulty pixel of the sensor, in sensor coordinates (zero-based, x from the left, y from the top).
struct PixelFault
{
    std::uint32_t x;
    std::uint32_t y;
    FaultKind kind;
    double signal; // Hot: 12-bit counts added at 10 ms, gain 0 dB and 40 degrees Celsius. Dead: 0
};

// The faults of a sensor, in row-major order and each pixel once: hot and dead single pixels, some hot ones at corners
// and edges, hot pairs, hot and dead parts of columns and rows, a hot cluster of 2 x 2, one whole hot line and one
// whole dead line. The hot line is a column for odd seeds and a row for even ones, the dead line lies across it; where
// they meet, the pixel is hot. Else faults keep 4 good pixels between them and 2 from the edge. Every hot pixel stands
// out of its neighbourhood by far: in the dark it exceeds the mean of itself and its four neighbours. A sensor too
// small for all of them has fewer.
// But for whole rows, a fault is at most longestRun pixels wide; those that are wider by nature are missing.
constexpr std::uint32_t LongestRun = 120;
std::vector<PixelFault> SeedFaults(std::uint32_t width, std::uint32_t height, std::uint64_t seed,
                                   std::uint32_t longestRun = LongestRun);

} // namespace Simulation
