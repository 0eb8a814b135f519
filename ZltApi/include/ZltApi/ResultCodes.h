// Result codes of the camera API.
#pragma once

#include "ZltApi/Export.h"

#include <cstdint>

// What an operation of the camera API returns. The numbers are part of the API's binary contract and appear in messages
// to the user: a value never changes.
enum ZltErrorType : std::int32_t
{
    ZltErrorSuccess = 0,
    ZltErrorUnexpectedFault = -1,
    ZltErrorNotStarted = -2,
    ZltErrorNotFound = -3,
    ZltErrorInvalidHandle = -4,
    ZltErrorDeviceNotOpen = -5,
    ZltErrorInvalidAccess = -6,
    ZltErrorBadParameter = -7,
    ZltErrorWrongVersion = -8,
    ZltErrorMoreData = -9,
    ZltErrorWrongType = -10,
    ZltErrorInvalidValue = -11,
    ZltErrorTimeout = -12,
    ZltErrorTransportLayer = -13,
    ZltErrorResource = -14,
    ZltErrorInvalidCall = -15,
    ZltErrorNoTransportLayer = -16,
    ZltErrorNotImplemented = -17,
    ZltErrorNotSupported = -18,
    ZltErrorFileOpen = -30
};

namespace ZltApi
{

// The enumerator's name, such as "ZltErrorTimeout", or "ZltErrorUnknown" for a number outside the list. Never null.
ZLTAPI_EXPORT const char* ResultName(ZltErrorType code) noexcept;

} // namespace ZltApi
