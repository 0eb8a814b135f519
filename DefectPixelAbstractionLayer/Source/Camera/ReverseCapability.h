// Which image mirror features a camera has.
#pragma once

#include "CameraAbstraction.h"

#include <boost/shared_ptr.hpp>

namespace KTR::DPC
{

// A bit mask; correction files hold the numbers.
enum class ReverseCapability : unsigned
{
    Non = 0,
    X = 1, // "ReverseX" only
    Y = 2, // "ReverseY" only
    XY = 3 // both
};

// Whether the mask holds all bits of the other.
constexpr bool includes(ReverseCapability mask, ReverseCapability bits)
{
    return (static_cast<unsigned>(mask) & static_cast<unsigned>(bits)) == static_cast<unsigned>(bits);
}

// Looks the features up by name. Never throws for the camera's sake: what cannot be looked up counts as absent.
ReverseCapability getReverseCapability(const boost::shared_ptr<CameraAbstraction>& camera);

} // namespace KTR::DPC
