// Result codes for what Aravis reports.
#include "Aravis/Ask.h"

namespace GenICam
{

namespace
{

ZltErrorType ResultOfDevice(int code)
{
    switch (code)
    {
    case ARV_DEVICE_ERROR_WRONG_FEATURE:
        return ZltErrorWrongType;
    case ARV_DEVICE_ERROR_FEATURE_NOT_FOUND:
    case ARV_DEVICE_ERROR_NOT_FOUND:
        return ZltErrorNotFound;
    case ARV_DEVICE_ERROR_NOT_CONNECTED:
        return ZltErrorDeviceNotOpen;
    case ARV_DEVICE_ERROR_TIMEOUT:
        return ZltErrorTimeout;
    case ARV_DEVICE_ERROR_INVALID_PARAMETER:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT:
        return ZltErrorBadParameter;
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER:
        return ZltErrorInvalidValue;
    case ARV_DEVICE_ERROR_NOT_CONTROLLER:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED:
        return ZltErrorInvalidAccess;
    case ARV_DEVICE_ERROR_GENICAM_NOT_FOUND:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY:
        return ZltErrorResource;
    case ARV_DEVICE_ERROR_NO_STREAM_CHANNEL:
        return ZltErrorNotSupported;
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED:
        return ZltErrorNotImplemented;
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR:
    case ARV_DEVICE_ERROR_TRANSFER_ERROR:
        return ZltErrorTransportLayer;
    default:
        return ZltErrorUnexpectedFault;
    }
}

ZltErrorType ResultOfFeature(int code)
{
    switch (code)
    {
    case ARV_GC_ERROR_OUT_OF_RANGE:
    case ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND:
    case ARV_GC_ERROR_INVALID_LENGTH:
    case ARV_GC_ERROR_INVALID_SYNTAX:
        return ZltErrorInvalidValue;
    case ARV_GC_ERROR_READ_ONLY:
        return ZltErrorInvalidAccess;
    case ARV_GC_ERROR_NO_DEVICE_SET:
        return ZltErrorDeviceNotOpen;
    default:
        return ZltErrorUnexpectedFault; // the camera's description of itself is broken
    }
}

} // namespace

ZltErrorType ResultOf(const GError& error)
{
    if (error.domain == ARV_DEVICE_ERROR)
    {
        return ResultOfDevice(error.code);
    }
    if (error.domain == ARV_GC_ERROR)
    {
        return ResultOfFeature(error.code);
    }
    // From the sockets below, or from a formula that has no result.
    return error.domain == G_IO_ERROR ? ZltErrorTransportLayer : ZltErrorUnexpectedFault;
}

void ThrowOn(GError* error)
{
    if (error != nullptr)
    {
        const ZltErrorType code = ResultOf(*error);
        g_error_free(error);
        throw AravisError(code);
    }
}

} // namespace GenICam
