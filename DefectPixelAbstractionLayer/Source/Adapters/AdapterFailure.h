// How adapters fail: with a sentence of their own, and with the camera's words behind it.
#pragma once

#include "Exception.h"

#include <string>

namespace KTR::DPC
{

[[noreturn]] inline void fail(const std::string& message)
{
    throw System::Exception(message, true);
}

// Runs a camera operation; its failure goes on with these words in front.
template <typename Operation> auto explained(const std::string& words, Operation operation)
{
    try
    {
        return operation();
    }
    catch (const System::Exception& cause)
    {
        fail(words + cause.ToString());
    }
}

} // namespace KTR::DPC
