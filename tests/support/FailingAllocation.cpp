// Makes one of the coming allocations that report failure as a null pointer fail.
#include "FailingAllocation.h"

#include <atomic>
#include <new>

namespace
{
std::atomic<unsigned> g_failing{0};
}

void FailNothrowNew(unsigned number)
{
    g_failing = number;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return g_failing != 0 && --g_failing == 0 ? nullptr : ::operator new(size);
}
