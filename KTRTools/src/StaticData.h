// Registry of data that exists once in a process, made on first use and destroyed in reverse order at the end.
#pragma once

#include "Exception.h"
#include "Object.h"
#include "StaticDataInitializer.h"

#include <boost/shared_ptr.hpp>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <new>
#include <stack>
#include <utility>

namespace KTR::System
{

// Unlike a static object, the data may be used from the constructors and destructors of static objects of any file that
// includes this header. The data is destroyed when the last of these files has destroyed its static objects.
class StaticData : public virtual Object
{
public:
    // Returns the data of a slot, made with T's default constructor at the first call. The slot is a static pointer
    // that starts as null, belongs to one T and is touched by nobody else. Any thread may call; threads that come while
    // another one makes the data wait for it. An exception of T's constructor goes to the caller that was making the
    // data, and the next caller tries again; a failed allocation is a KTR::System::Exception. T's constructor and
    // destructor must not access their own slot.
    template <class T> static boost::shared_ptr<T> Access(void*& slot);

private:
    friend class _StaticDataInitializer;

    // What a slot points to: one piece of data, whatever its type.
    class DataContainer : public virtual Object
    {
    public:
        // Destroys the data, unless somebody outside still holds it.
        virtual void ReleaseData() = 0;

        // Set while the data may be handed out; guarded by the registry's mutex.
        bool ready = false;
    };

    template <class T> class DataContainerTemplate;

    // The registry itself. All of it, and every slot, is guarded by the mutex.
    struct InternalData
    {
        InternalData() = default;
        // Destroys the data, last made first, with the mutex released so that its destructors may access other data.
        ~InternalData();
        InternalData(const InternalData&) = delete;
        InternalData& operator=(const InternalData&) = delete;

        std::mutex mutex;
        std::condition_variable changed; // some container became ready, or was deleted
        std::stack<std::unique_ptr<DataContainer>> containers;
    };

    // The registry; asserts that it exists.
    static InternalData& internalData();

    static InternalData* m_pInternalData;
};

// Occupies its slot from construction to destruction.
template <class T> class StaticData::DataContainerTemplate : public DataContainer
{
public:
    explicit DataContainerTemplate(void*& slot) : m_slot(slot) { m_slot = this; }
    ~DataContainerTemplate() override { m_slot = nullptr; }
    DataContainerTemplate(const DataContainerTemplate&) = delete;
    DataContainerTemplate& operator=(const DataContainerTemplate&) = delete;

    void ReleaseData() override
    {
        boost::shared_ptr<T> dying;
        dying.swap(data);
    }

    boost::shared_ptr<T> data;

private:
    void*& m_slot;
};

template <class T> boost::shared_ptr<T> StaticData::Access(void*& slot)
{
    InternalData& internal = internalData();
    std::unique_lock<std::mutex> lock(internal.mutex);
    while (slot != nullptr)
    {
        const auto* made = static_cast<DataContainerTemplate<T>*>(slot);
        if (made->ready)
        {
            return made->data;
        }
        internal.changed.wait(lock);
    }

    std::unique_ptr<DataContainerTemplate<T>> container(new (std::nothrow) DataContainerTemplate<T>(slot));
    lock.unlock();
    if (!container)
    {
        throw Exception("Could not allocate static data container.", true);
    }

    try
    {
        boost::shared_ptr<T> data(new (std::nothrow) T);
        lock.lock();
        if (data)
        {
            container->data = data;
            internal.containers.push(std::move(container));
            internal.containers.top()->ready = true;
            internal.changed.notify_all();
            return data;
        }
    }
    catch (...)
    {
        if (!lock.owns_lock())
        {
            lock.lock();
        }
        container.reset();
        internal.changed.notify_all();
        throw;
    }
    container.reset();
    internal.changed.notify_all();
    // The mutex is free before anything is logged: the logger's own data lives here, too.
    lock.unlock();
    throw Exception("Could not allocate static data.", true);
}

} // namespace KTR::System
