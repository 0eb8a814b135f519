// Continuous acquisition: announced buffers, the thread that hands them out, and the observer that gets them.
#include "Stream/FrameStream.h"

#include "Device/Connection.h"
#include "Stream/TransportLock.h"

#include <algorithm>
#include <utility>

namespace GenICam
{

namespace
{

constexpr std::uint32_t MostBuffers = 256;
constexpr guint64 HandOverTime = 100000; // microseconds; a buffer that has been reported is there at once
constexpr std::uint64_t LargestImage = std::uint64_t{2} << 30U; // bytes

std::int64_t IntegerOr(Connection& connection, const char* name, std::int64_t fallback)
{
    FeatureNode* const node = connection.FindFeature(name);
    std::int64_t value = 0;
    return node != nullptr && node->IsReadable() && node->Get(value) == ZltErrorSuccess ? value : fallback;
}

ImageShape ExpectedShape(Connection& connection)
{
    const auto number = [&](const char* name)
    { return static_cast<std::uint32_t>(std::clamp<std::int64_t>(IntegerOr(connection, name, 0), 0, 0xFFFFFFFF)); };
    return {number("Width"), number("Height"), number("PixelFormat")};
}

// Large enough for what the camera says it sends, and for an image of the size that it says it makes.
std::size_t BufferSize(Connection& connection, const ImageShape& shape)
{
    const std::int64_t payload = IntegerOr(connection, "PayloadSize", 0);
    const std::uint64_t size = std::max(static_cast<std::uint64_t>(std::max<std::int64_t>(payload, 0)), shape.Size());
    if (payload <= 0 || size > LargestImage)
    {
        throw AravisError(ZltErrorResource);
    }
    return static_cast<std::size_t>(size);
}

void RunCommand(Connection& connection, const char* name)
{
    if (FeatureNode* const command = connection.FindFeature(name))
    {
        command->Run();
    }
}

// A camera that refuses one step, or keeps silent, may take the next: often that is a mere note on this side.
template <typename Step> void Try(const Step& step)
{
    try
    {
        step();
    }
    catch (const AravisError&)
    {
    }
}

// Under the lock of the connection.
void EndAcquisition(Connection& connection)
{
    Try([&] { RunCommand(connection, "AcquisitionStop"); });
    Try([&] { SetTransportLocked(connection.Device(), false); });
}

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

ZltErrorType FrameStream::Start(std::uint32_t bufferCount, ZltApi::IFrameObserverPtr observer)
{
    if (bufferCount == 0 || bufferCount > MostBuffers || !observer)
    {
        return ZltErrorBadParameter;
    }
    if (IsOwnThread())
    {
        return ZltErrorInvalidCall;
    }
    const std::lock_guard control(m_control);
    if (m_thread.joinable())
    {
        return ZltErrorInvalidCall;
    }
    ZltErrorType result = m_connection.Run([&] { return Prepare(bufferCount); });
    if (result != ZltErrorSuccess)
    {
        Teardown();
        return result;
    }
    m_observer = std::move(observer);
    m_counter = {};
    {
        const std::lock_guard lock(m_mutex);
        m_isRunning = true;
        m_thread = std::thread([this, target = m_observer] { Deliver(*target); });
        m_threadId = m_thread.get_id();
    }
    result = m_connection.Run(
        [&]
        {
            SetTransportLocked(m_connection.Device(), true);
            RunCommand(m_connection, "AcquisitionStart");
            return ZltErrorSuccess;
        });
    if (result != ZltErrorSuccess)
    {
        Teardown();
    }
    return result;
}

ZltErrorType FrameStream::Prepare(std::uint32_t bufferCount)
{
    const ImageShape shape = ExpectedShape(m_connection);
    const std::size_t size = BufferSize(m_connection, shape);
    ObjectPtr<ArvStream> stream(
        Ask(arv_device_create_stream, m_connection.Device(), &FrameStream::OnStreamEvent, static_cast<void*>(this)));
    if (!stream)
    {
        return ZltErrorNotSupported;
    }
    const bool isGigEVision = ARV_IS_GV_STREAM(stream.get());
    if (isGigEVision)
    {
        g_object_set(stream.get(), "socket-buffer", ARV_GV_STREAM_SOCKET_BUFFER_AUTO, nullptr);
    }
    const std::lock_guard lock(m_mutex);
    m_stream = std::move(stream);
    m_arrived = 0;
    m_lent.clear();
    m_frames.clear();
    for (std::uint32_t i = 0; i < bufferCount; ++i)
    {
        m_frames.push_back(std::make_shared<AravisFrame>(size, shape, isGigEVision));
        Announce(*m_frames.back());
    }
    return ZltErrorSuccess;
}

void FrameStream::Announce(const AravisFrame& frame)
{
    arv_stream_push_buffer(m_stream.get(), ARV_BUFFER(g_object_ref(frame.Buffer())));
}

ZltErrorType FrameStream::Stop()
{
    if (IsOwnThread())
    {
        return ZltErrorInvalidCall;
    }
    const std::lock_guard control(m_control);
    if (!Teardown())
    {
        // A program that died may have left the camera running.
        m_connection.Run(
            [&]
            {
                EndAcquisition(m_connection);
                return ZltErrorSuccess;
            });
    }
    return ZltErrorSuccess;
}

// Under m_control.
bool FrameStream::Teardown()
{
    const ZltApi::IFrameObserverPtr forgotten = std::move(m_observer); // may hold the camera's last reference
    {
        const std::lock_guard lock(m_mutex);
        m_isRunning = false;
    }
    m_wake.notify_all();
    if (m_thread.joinable())
    {
        m_thread.join();
    }
    ObjectPtr<ArvStream> stream;
    {
        const std::lock_guard lock(m_mutex);
        m_threadId = {};
        stream = std::move(m_stream);
    }
    if (!stream)
    {
        return false;
    }
    const std::lock_guard device(m_connection.Mutex());
    if (!m_connection.IsLost())
    {
        EndAcquisition(m_connection);
    }
    if (m_connection.IsLost())
    {
        const std::lock_guard lock(m_mutex);
        m_ended = {m_frames, std::move(stream)}; // its end tells the camera, and waits for an answer that never comes
        return true;
    }
    stream.reset(); // waits for Aravis's thread, which needs m_mutex but never the camera's lock
    return true;
}

void FrameStream::Release()
{
    Ended ended;
    const std::lock_guard lock(m_mutex);
    std::swap(ended, m_ended);
}

ZltErrorType FrameStream::Queue(const ZltApi::FramePtr& frame)
{
    const auto own = std::dynamic_pointer_cast<AravisFrame>(frame);
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
    if (m_isRunning)
    {
        Announce(*own);
    }
    return ZltErrorSuccess;
}

ZltErrorType FrameStream::ReleaseAll()
{
    const std::lock_guard lock(m_mutex);
    if (m_isRunning)
    {
        return ZltErrorInvalidCall;
    }
    m_frames.clear();
    m_lent.clear();
    return ZltErrorSuccess;
}

// On Aravis's thread. The lock also passes on what was written into a buffer: from the one who queues it to Aravis when
// a frame begins, and from Aravis to our thread when it is done.
void FrameStream::OnStreamEvent(void* self, ArvStreamCallbackType type, ArvBuffer*)
{
    auto& stream = *static_cast<FrameStream*>(self);
    const std::lock_guard lock(stream.m_mutex);
    if (type == ARV_STREAM_CALLBACK_TYPE_BUFFER_DONE)
    {
        ++stream.m_arrived;
        stream.m_wake.notify_all();
    }
}

FrameStream::AravisFramePtr FrameStream::Receive(ArvStream& stream)
{
    const ObjectPtr<ArvBuffer> buffer(arv_stream_timeout_pop_buffer(&stream, HandOverTime));
    const std::lock_guard lock(m_mutex);
    const auto found = std::find_if(m_frames.begin(), m_frames.end(),
                                    [&](const AravisFramePtr& frame) { return frame->Buffer() == buffer.get(); });
    if (!buffer || found == m_frames.end())
    {
        return nullptr;
    }
    m_lent.push_back(*found);
    return *found;
}

void FrameStream::Deliver(ZltApi::IFrameObserver& observer)
{
    for (;;)
    {
        ArvStream* stream = nullptr;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_arrived > 0 || !m_isRunning; });
            if (!m_isRunning)
            {
                return;
            }
            --m_arrived;
            stream = m_stream.get();
        }
        if (const AravisFramePtr frame = Receive(*stream))
        {
            frame->Describe(m_counter.Next(arv_buffer_get_frame_id(frame->Buffer())));
            observer.FrameReceived(frame);
        }
    }
}

} // namespace GenICam
