// Continuous acquisition: announced buffers, the thread that fills them, and the observer that gets them.
#pragma once

#include "BasicFrame.h"
#include "ZltApi/Observers.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace Simulation
{

// Makes the frames of a stream. Called on the stream's thread only.
class FrameSource
{
public:
    virtual ~FrameSource() = default;

    // Begins an exposure with the settings of this moment and tells how long it is until the next one may begin.
    // Nothing while the acquisition pauses.
    virtual std::optional<std::chrono::microseconds> Begin(std::uint64_t frameId) = 0;
    // Fills a buffer with the exposure that was begun. False when the frame is lost on its way.
    virtual bool Render(ProviderBase::BasicFrame& frame) = 0;
};

// Thread-safe. The observer is called on the stream's own thread, without any lock held.
class FrameStream
{
public:
    explicit FrameStream(FrameSource& source) : m_source(source) {}
    ~FrameStream();
    FrameStream(const FrameStream&) = delete;
    FrameStream& operator=(const FrameStream&) = delete;

    // Announces and queues the buffers, each of that many bytes, and begins to expose.
    ZltErrorType Start(std::uint32_t bufferCount, std::uint64_t bufferSize, ZltApi::IFrameObserverPtr observer);
    // Waits for a running callback and forgets the observer. Does nothing without a stream. Refused within a callback.
    ZltErrorType Stop();
    bool IsRunning() const;
    // Takes back a frame that the observer has got since the last start, once.
    ZltErrorType Queue(const ZltApi::FramePtr& frame);
    // Refused while the stream runs.
    ZltErrorType ReleaseAll();

private:
    using FramePtr = std::shared_ptr<ProviderBase::BasicFrame>;
    using Clock = std::chrono::steady_clock;

    bool IsOwnThread() const;
    void Run(ZltApi::IFrameObserver& observer);
    FramePtr TakeFree();
    void TakeBack(FramePtr frame);
    void Lend(const FramePtr& frame);
    // False when the stream is to end.
    bool WaitUntil(Clock::time_point time);

    FrameSource& m_source;
    std::mutex m_control; // serialises Start and Stop
    std::thread m_thread;
    ZltApi::IFrameObserverPtr m_observer;

    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_wake;
    bool m_running = false;
    std::thread::id m_threadId;
    std::deque<FramePtr> m_free;
    std::vector<FramePtr> m_lent; // with the host
};

} // namespace Simulation
