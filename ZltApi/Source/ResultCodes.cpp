// Names of the result codes.
#include "ZltApi/ResultCodes.h"

namespace ZltApi
{

const char* ResultName(ZltErrorType code) noexcept
{
    switch (code)
    {
    case ZltErrorSuccess:
        return "ZltErrorSuccess";
    case ZltErrorUnexpectedFault:
        return "ZltErrorUnexpectedFault";
    case ZltErrorNotStarted:
        return "ZltErrorNotStarted";
    case ZltErrorNotFound:
        return "ZltErrorNotFound";
    case ZltErrorInvalidHandle:
        return "ZltErrorInvalidHandle";
    case ZltErrorDeviceNotOpen:
        return "ZltErrorDeviceNotOpen";
    case ZltErrorInvalidAccess:
        return "ZltErrorInvalidAccess";
    case ZltErrorBadParameter:
        return "ZltErrorBadParameter";
    case ZltErrorWrongVersion:
        return "ZltErrorWrongVersion";
    case ZltErrorMoreData:
        return "ZltErrorMoreData";
    case ZltErrorWrongType:
        return "ZltErrorWrongType";
    case ZltErrorInvalidValue:
        return "ZltErrorInvalidValue";
    case ZltErrorTimeout:
        return "ZltErrorTimeout";
    case ZltErrorTransportLayer:
        return "ZltErrorTransportLayer";
    case ZltErrorResource:
        return "ZltErrorResource";
    case ZltErrorInvalidCall:
        return "ZltErrorInvalidCall";
    case ZltErrorNoTransportLayer:
        return "ZltErrorNoTransportLayer";
    case ZltErrorNotImplemented:
        return "ZltErrorNotImplemented";
    case ZltErrorNotSupported:
        return "ZltErrorNotSupported";
    case ZltErrorFileOpen:
        return "ZltErrorFileOpen";
    }
    return "ZltErrorUnknown";
}

} // namespace ZltApi
