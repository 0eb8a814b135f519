// The way from what is thrown inside a provider to the result codes of the camera API.
#pragma once

#include "ZltApi/ResultCodes.h"

#include <new>

namespace ProviderBase
{

// What went wrong, as the camera API tells it. Thrown inside a provider only.
class Failure final
{
public:
    explicit Failure(ZltErrorType code) : m_code(code) {}

    ZltErrorType Code() const { return m_code; }

private:
    ZltErrorType m_code;
};

// Runs the action, a function that returns ZltErrorType. Nothing thrown leaves a provider.
template <typename Action> ZltErrorType Guarded(const Action& action) noexcept
{
    try
    {
        return action();
    }
    catch (const Failure& failure)
    {
        return failure.Code();
    }
    catch (const std::bad_alloc&)
    {
        return ZltErrorResource;
    }
    catch (...)
    {
        return ZltErrorUnexpectedFault;
    }
}

// Gives out a text.
template <typename Text> ZltErrorType Copy(const Text& from, Text& to) noexcept
{
    return Guarded(
        [&]
        {
            to = from;
            return ZltErrorSuccess;
        });
}

} // namespace ProviderBase
