// Queues the frames of one acquisition between the camera API's thread and the one that shows them.
#pragma once

#include "ZltApi/Camera.h"
#include "ZltApi/Observers.h"

#include <QObject>

#include <mutex>
#include <queue>

// FrameReceived runs on a thread of the camera API, the other operations on any thread. The queue never holds more
// frames than the acquisition has buffers, since each frame must be queued again before the camera can fill it.
class FrameObserver : public QObject, public virtual ZltApi::IFrameObserver
{
    Q_OBJECT

public:
    explicit FrameObserver(const ZltApi::CameraPtr& camera);

    // Queues the frame and announces it. A frame that nobody waits for, or whose status cannot be read, goes straight
    // back to the camera, so that its buffer stays in circulation.
    void FrameReceived(ZltApi::FramePtr frame) override;

    // The oldest frame, or null when there is none.
    ZltApi::FramePtr GetFrame();
    // Drops the queued frames without handing them back to the camera.
    void ClearFrameQueue();

Q_SIGNALS:
    void FrameReceivedSignal(int status);

private:
    std::queue<ZltApi::FramePtr> m_frameQueue;
    std::mutex m_frameQueueMutex;
};
