// Scope guard for whatever must not run under a live stream.
#pragma once

class AsynchronousCameraController;

// Stops the stream, and starts it again at the end of the scope if it was running.
class CameraStreamStateHolder
{
public:
    explicit CameraStreamStateHolder(AsynchronousCameraController& controller);
    ~CameraStreamStateHolder();
    CameraStreamStateHolder(const CameraStreamStateHolder&) = delete;
    CameraStreamStateHolder& operator=(const CameraStreamStateHolder&) = delete;

private:
    AsynchronousCameraController& m_controller;
    bool m_wasStreaming;
};
