// A recorded dark frame, read from an image file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Simulation
{

struct DarkFrame
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<float> counts; // 12-bit counts in row-major order: full scale of the file is 255 * 16
};

// Reads a binary PGM file (P5, 8 or 16 bits) or a grey PNG file of 8 bits, told apart by their first bytes. Throws
// std::runtime_error with a full sentence when the file cannot be read, is damaged or of another kind, or shows more
// than maxWidth x maxHeight pixels.
DarkFrame ReadDarkFrame(const std::string& path, std::uint32_t maxWidth, std::uint32_t maxHeight);

} // namespace Simulation
