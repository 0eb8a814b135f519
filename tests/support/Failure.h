// What a call told the user when it failed.
#pragma once

#include "Exception.h"

#include <string>
#include <utility>

// The text ends in "(Error code: ...)" exactly when the failure carries a code of the camera API; empty without a
// failure.
template <class Call> std::string FailureOf(Call&& call)
{
    try
    {
        std::forward<Call>(call)();
        return {};
    }
    catch (const KTR::System::Exception& exception)
    {
        return exception.ToString();
    }
}
