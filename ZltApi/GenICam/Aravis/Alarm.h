// Wakes a thread that waits.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace GenICam
{

// Thread-safe; one thread waits.
class Alarm
{
public:
    void Ring()
    {
        const std::lock_guard lock(m_mutex);
        m_isRinging = true;
        m_changed.notify_all();
    }

    // Returns when the time is over or somebody has rung, also before. True when somebody has.
    bool Wait(std::chrono::milliseconds time)
    {
        std::unique_lock lock(m_mutex);
        const bool isRinging = m_changed.wait_for(lock, time, [this] { return m_isRinging; });
        m_isRinging = false;
        return isRinging;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isRinging = false;
};

} // namespace GenICam
