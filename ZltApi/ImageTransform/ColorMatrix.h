// Colour correction by a 3 x 3 matrix.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ZltApi::ImageTransform
{

// Multiplies (red, green, blue) of each blue-first pixel by the matrix, given row by row. Results are rounded and
// clamped to 0 .. 255; the fourth byte becomes 255.
void ApplyColorMatrix(const float (&matrix)[9], std::uint8_t* bgra, std::size_t pixels);

} // namespace ZltApi::ImageTransform
