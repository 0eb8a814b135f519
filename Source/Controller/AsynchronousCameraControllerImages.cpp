// The controller's way from a frame of the camera to the image buffer.
#include "AsynchronousCameraController.h"

void AsynchronousCameraController::OnFrameReady(int /*status*/)
{
    if (!m_streaming)
    {
        return;
    }
    const ZltApi::FramePtr frame = m_api.GetFrame();
    if (!frame)
    {
        return;
    }
    m_api.QueueFrame(frame);
}
