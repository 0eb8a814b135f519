// Registry of data that exists once in a process, made on first use and destroyed in reverse order at the end.
#include "StaticData.h"

#include <cassert>

namespace KTR::System
{

StaticData::InternalData* StaticData::m_pInternalData = nullptr;

StaticData::InternalData& StaticData::internalData()
{
    assert(m_pInternalData != nullptr);
    return *m_pInternalData;
}

StaticData::InternalData::~InternalData()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (!containers.empty())
    {
        std::unique_ptr<DataContainer> container = std::move(containers.top());
        containers.pop();
        container->ready = false;
        lock.unlock();
        try
        {
            container->ReleaseData();
        }
        catch (...) // NOLINT(bugprone-empty-catch): nobody is left to hear of it, and the other data must still go
        {
        }
        lock.lock();
        container.reset();
        changed.notify_all();
    }
}

} // namespace KTR::System
