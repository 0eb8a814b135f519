// The stream's thread and its queue of free buffers.
#include "Stream/FrameStream.h"

#include <algorithm>
#include <utility>

namespace Simulation
{

namespace
{

constexpr std::uint32_t MostBuffers = 256;
constexpr std::chrono::milliseconds PausePeriod{2};

} // namespace

FrameStream::~FrameStream()
{
    Stop();
}

bool FrameStream::IsOwnThread() const
{
    const std::lock_guard lock(m_mutex);
    return m_threadId == std::this_thread::get_id();
}

bool FrameStream::IsRunning() const
{
    const std::lock_guard lock(m_mutex);
    return m_running;
}

ZltErrorType FrameStream::Start(std::uint32_t bufferCount, std::uint64_t bufferSize, ZltApi::IFrameObserverPtr observer)
{
    if (bufferCount == 0 || bufferCount > MostBuffers || bufferSize == 0 || !observer)
    {
        return ZltErrorBadParameter;
    }
    if (IsOwnThread())
    {
        return ZltErrorInvalidCall;
    }
    const std::lock_guard control(m_control);
    const std::lock_guard lock(m_mutex);
    if (m_running)
    {
        return ZltErrorInvalidCall;
    }
    m_lent.clear();
    m_free.clear();
    for (std::uint32_t i = 0; i < bufferCount; ++i)
    {
        m_free.push_back(std::make_shared<ProviderBase::BasicFrame>(bufferSize));
    }
    m_observer = std::move(observer);
    m_thread = std::thread([this, target = m_observer] { Run(*target); });
    m_threadId = m_thread.get_id();
    m_running = true;
    return ZltErrorSuccess;
}

ZltErrorType FrameStream::Stop()
{
    if (IsOwnThread())
    {
        return ZltErrorInvalidCall;
    }
    ZltApi::IFrameObserverPtr forgotten; // goes when no lock is held any more: it may hold the camera's last reference
    const std::lock_guard control(m_control);
    {
        const std::lock_guard lock(m_mutex);
        m_running = false;
    }
    m_wake.notify_all();
    if (m_thread.joinable())
    {
        m_thread.join();
    }
    const std::lock_guard lock(m_mutex);
    m_threadId = {};
    forgotten = std::move(m_observer);
    return ZltErrorSuccess;
}

ZltErrorType FrameStream::Queue(const ZltApi::FramePtr& frame)
{
    const auto own = std::dynamic_pointer_cast<ProviderBase::BasicFrame>(frame);
    if (!own)
    {
        return ZltErrorBadParameter;
    }
    const std::lock_guard lock(m_mutex);
    const auto lent = std::find(m_lent.begin(), m_lent.end(), own);
    if (lent == m_lent.end())
    {
        return ZltErrorInvalidCall;
    }
    m_lent.erase(lent);
    m_free.push_back(own);
    return ZltErrorSuccess;
}

ZltErrorType FrameStream::ReleaseAll()
{
    const std::lock_guard lock(m_mutex);
    if (m_running)
    {
        return ZltErrorInvalidCall;
    }
    m_free.clear();
    m_lent.clear();
    return ZltErrorSuccess;
}

FrameStream::FramePtr FrameStream::TakeFree()
{
    const std::lock_guard lock(m_mutex);
    if (m_free.empty())
    {
        return nullptr;
    }
    FramePtr frame = std::move(m_free.front());
    m_free.pop_front();
    return frame;
}

void FrameStream::TakeBack(FramePtr frame)
{
    const std::lock_guard lock(m_mutex);
    m_free.push_front(std::move(frame));
}

void FrameStream::Lend(const FramePtr& frame)
{
    const std::lock_guard lock(m_mutex);
    m_lent.push_back(frame);
}

bool FrameStream::WaitUntil(Clock::time_point time)
{
    std::unique_lock lock(m_mutex);
    return !m_wake.wait_until(lock, time, [this] { return !m_running; });
}

void FrameStream::Run(ZltApi::IFrameObserver& observer)
{
    std::uint64_t frameId = 0;
    auto begin = Clock::now();
    while (WaitUntil(begin))
    {
        const auto duration = m_source.Begin(frameId);
        if (!duration)
        {
            begin = Clock::now() + PausePeriod;
            continue;
        }
        // Without a free buffer the exposure happens all the same, and is lost.
        FramePtr frame = TakeFree();
        if (frame && !m_source.Render(*frame))
        {
            TakeBack(std::exchange(frame, nullptr));
        }
        // A machine that is too slow for the frame rate lowers the rate, it does not catch up.
        begin = std::max(begin + *duration, Clock::now());
        if (!WaitUntil(begin))
        {
            return;
        }
        if (frame)
        {
            Lend(frame);
            observer.FrameReceived(frame);
        }
        ++frameId;
    }
}

} // namespace Simulation
