// Names of pixel formats.
#pragma once

#include <cstdint>
#include <string>

namespace Simulation
{

// The name of a ZltPixelFormat in the GenICam pixel format naming convention; empty for a number that has none here.
std::string PixelFormatName(std::uint32_t format);

} // namespace Simulation
