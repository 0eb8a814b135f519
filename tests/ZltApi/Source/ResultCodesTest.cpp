// Result codes keep their numbers and names.
#include "ZltApi/ResultCodes.h"

#include <gtest/gtest.h>

TEST(ResultCodes, HaveNames)
{
    const char* const names[] = {"Success",          "UnexpectedFault", "NotStarted",    "NotFound",
                                 "InvalidHandle",    "DeviceNotOpen",   "InvalidAccess", "BadParameter",
                                 "WrongVersion",     "MoreData",        "WrongType",     "InvalidValue",
                                 "Timeout",          "TransportLayer",  "Resource",      "InvalidCall",
                                 "NoTransportLayer", "NotImplemented",  "NotSupported",  "Unknown"};
    int code = 0;
    for (const char* const name : names)
    {
        EXPECT_EQ(ZltApi::ResultName(static_cast<ZltErrorType>(code--)), std::string("ZltError") + name);
    }
    EXPECT_STREQ(ZltApi::ResultName(static_cast<ZltErrorType>(-30)), "ZltErrorFileOpen");
}
