// The registered observers of one kind.
#pragma once

#include "ZltApi/ResultCodes.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace ZltApi
{

// No lock of its own.
template <class Observer> class ObserverList
{
public:
    using ObserverPtr = std::shared_ptr<Observer>;

    bool Contains(const ObserverPtr& observer) const
    {
        return std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end();
    }

    const std::vector<ObserverPtr>& GetAll() const { return m_observers; }

    // ZltErrorInvalidCall when it is registered already.
    ZltErrorType Add(const ObserverPtr& observer)
    {
        if (Contains(observer))
        {
            return ZltErrorInvalidCall;
        }
        m_observers.push_back(observer);
        return ZltErrorSuccess;
    }

    // ZltErrorNotFound when it is not registered.
    ZltErrorType Remove(const ObserverPtr& observer)
    {
        const auto found = std::find(m_observers.begin(), m_observers.end(), observer);
        if (found == m_observers.end())
        {
            return ZltErrorNotFound;
        }
        m_observers.erase(found);
        return ZltErrorSuccess;
    }

private:
    std::vector<ObserverPtr> m_observers;
};

} // namespace ZltApi
