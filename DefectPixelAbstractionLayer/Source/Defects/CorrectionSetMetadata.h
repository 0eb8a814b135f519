// What a correction set can tell about the conditions under which it was made.
#pragma once

#include <string>

// The names under which the sets of the family with a temperature-controlled sensor keep them, the only ones in use.
namespace KTR::DPC::TamorinPro
{

inline const std::string CORRECTION_SET_METADATA_GAIN = "Gain";
inline const std::string CORRECTION_SET_METADATA_TEMPERATURE = "Temperature"; // degrees Celsius
inline const std::string CORRECTION_SET_METADATA_EXPOSURE = "ExposureTime";   // microseconds

// UTF-8, for descriptions.
inline constexpr char DEGREESIGN[] = "\xC2\xB0";
inline constexpr char MICROSIGN[] = "\xC2\xB5";

} // namespace KTR::DPC::TamorinPro
