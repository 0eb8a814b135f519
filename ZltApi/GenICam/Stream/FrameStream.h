// Continuous acquisition: announced buffers, the thread that hands them out, and the observer that gets them.
#pragma once

#include "Aravis/ObjectPtr.h"
#include "Stream/AravisFrame.h"
#include "Stream/FrameCounter.h"
#include "ZltApi/Observers.h"

#include <arv.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace GenICam
{

class Connection;

// Thread-safe. The observer is called on the stream's own thread, without any lock held.
class FrameStream
{
public:
    explicit FrameStream(Connection& connection) : m_connection(connection) {}
    ~FrameStream();
    FrameStream(const FrameStream&) = delete;
    FrameStream& operator=(const FrameStream&) = delete;

    // Announces and queues the buffers, sets up the camera's stream and starts the acquisition.
    ZltErrorType Start(std::uint32_t bufferCount, ZltApi::IFrameObserverPtr observer);
    // Waits for a running callback and forgets the observer. Without a stream it only tells the camera to stop, which
    // another host may have left running. Refused within a callback.
    ZltErrorType Stop();
    // Takes back a frame that the observer has got since the last start, once.
    ZltErrorType Queue(const ZltApi::FramePtr& frame);
    // Refused while the stream runs.
    ZltErrorType ReleaseAll();
    // Lets go of the stream of a camera that was lost, which takes seconds. Nothing of it reaches the observer since
    // Stop.
    void Release();

    bool IsOwnThread() const;

private:
    using AravisFramePtr = std::shared_ptr<AravisFrame>;

    // A stream that Aravis goes on with, and the buffers that it may write until it goes.
    struct Ended
    {
        std::vector<AravisFramePtr> frames;
        ObjectPtr<ArvStream> stream; // goes before them
    };

    ZltErrorType Prepare(std::uint32_t bufferCount);
    bool Teardown(); // false when there was no stream
    void Deliver(ZltApi::IFrameObserver& observer);
    AravisFramePtr Receive(ArvStream& stream);
    // Hands a buffer to Aravis. Under m_mutex.
    void Announce(const AravisFrame& frame);

    static void OnStreamEvent(void* self, ArvStreamCallbackType type, ArvBuffer* buffer);

    Connection& m_connection;
    std::mutex m_control; // serialises Start and Stop
    std::thread m_thread;
    ZltApi::IFrameObserverPtr m_observer;
    FrameCounter m_counter; // of the thread

    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_wake;
    bool m_isRunning = false;
    std::thread::id m_threadId;
    std::size_t m_arrived = 0; // buffers that wait for the thread
    ObjectPtr<ArvStream> m_stream;
    Ended m_ended;
    std::vector<AravisFramePtr> m_frames; // announced
    std::vector<AravisFramePtr> m_lent;   // of these, with the host
};

} // namespace GenICam
