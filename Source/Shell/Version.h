// The program's version.
#pragma once

#include <string>

namespace Lorvane
{

// Version numbers and source revision, joined by dots.
extern const std::string VersionString;

} // namespace Lorvane
