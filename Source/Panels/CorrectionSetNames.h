// Names that stand where a correction set's name would, but are none.
#pragma once

namespace Lorvane
{

// The selection while no set is chosen.
inline constexpr char NoSetName[] = "[No Set]";
// The active set while none is in force.
inline constexpr char ACTIVE_SET_NONE_TEXT[] = "None";

} // namespace Lorvane
