// What the user would read after an operation.
#pragma once

#include "Exception.h"

// Empty when nothing failed.
template <typename Operation> std::string failureText(Operation operation)
{
    try
    {
        operation();
        return {};
    }
    catch (const KTR::System::Exception& exception)
    {
        return exception.ToString();
    }
}
