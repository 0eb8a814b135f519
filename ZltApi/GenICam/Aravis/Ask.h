// Calls of Aravis functions that report failures through their last argument.
#pragma once

#include "Guarded.h"
#include "ZltApi/ResultCodes.h"

#include <arv.h>

#include <type_traits>

namespace GenICam
{

using AravisError = ProviderBase::Failure;

ZltErrorType ResultOf(const GError& error);

// Releases the error, if there is one, and throws it.
void ThrowOn(GError* error);

// Calls the function with the arguments and a place for its error. Throws AravisError.
template <typename Result, typename... Parameters, typename... Arguments>
Result Ask(Result (*function)(Parameters...), Arguments... arguments)
{
    GError* error = nullptr;
    if constexpr (std::is_void_v<Result>)
    {
        function(arguments..., &error);
        ThrowOn(error);
    }
    else
    {
        const Result result = function(arguments..., &error);
        ThrowOn(error);
        return result;
    }
}

// The same for what a description may leave out: then the answer is Aravis's own, such as the widest range.
template <typename Result, typename... Parameters, typename... Arguments>
Result AskOptional(Result (*function)(Parameters...), Arguments... arguments)
{
    GError* error = nullptr;
    const Result result = function(arguments..., &error);
    if (error != nullptr && g_error_matches(error, ARV_GC_ERROR, ARV_GC_ERROR_PROPERTY_NOT_DEFINED) != FALSE)
    {
        g_clear_error(&error);
    }
    ThrowOn(error);
    return result;
}

} // namespace GenICam
