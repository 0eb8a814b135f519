#include "FrameObserver.h"

FrameObserver::FrameObserver(const ZltApi::CameraPtr& camera) : ZltApi::IFrameObserver(camera) {}

void FrameObserver::FrameReceived(ZltApi::FramePtr frame)
{
    ZltApi::FrameStatus status = ZltApi::FrameStatusInvalid;
    // receivers() takes the object's connection lock, so that it may be asked on this thread.
    if (receivers(SIGNAL(FrameReceivedSignal(int))) == 0 || frame->GetReceiveStatus(status) != ZltErrorSuccess)
    {
        m_camera->QueueFrame(frame);
        return;
    }
    {
        const std::lock_guard lock(m_frameQueueMutex);
        m_frameQueue.push(std::move(frame));
    }
    Q_EMIT FrameReceivedSignal(status);
}

ZltApi::FramePtr FrameObserver::GetFrame()
{
    const std::lock_guard lock(m_frameQueueMutex);
    if (m_frameQueue.empty())
    {
        return nullptr;
    }
    ZltApi::FramePtr frame = std::move(m_frameQueue.front());
    m_frameQueue.pop();
    return frame;
}

void FrameObserver::ClearFrameQueue()
{
    std::queue<ZltApi::FramePtr> dropped;
    const std::lock_guard lock(m_frameQueueMutex);
    m_frameQueue.swap(dropped);
}
