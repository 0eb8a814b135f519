// Scope guard for whatever must not run under a live stream.
#include "CameraStreamStateHolder.h"

#include "AsynchronousCameraController.h"

CameraStreamStateHolder::CameraStreamStateHolder(AsynchronousCameraController& controller)
    : m_controller(controller),
      m_wasStreaming(controller.StopIfStreaming())
{
}

CameraStreamStateHolder::~CameraStreamStateHolder()
{
    if (m_wasStreaming)
    {
        m_controller.StartStopAcquisition();
    }
}
