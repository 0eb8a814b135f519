// Observer interfaces: what the camera API calls back. All calls come on threads of a provider.
#pragma once

#include "ZltApi/Types.h"

#include <utility>

namespace ZltApi
{

class ICameraListObserver
{
public:
    virtual ~ICameraListObserver() = default;

    virtual void CameraListChanged(CameraPtr camera, UpdateTriggerType reason) = 0;
};

class IInterfaceListObserver
{
public:
    virtual ~IInterfaceListObserver() = default;

    virtual void InterfaceListChanged(InterfacePtr interface, UpdateTriggerType reason) = 0;
};

// Receives the frames of one acquisition. Each frame must find its way back through Camera::QueueFrame.
class IFrameObserver
{
public:
    explicit IFrameObserver(CameraPtr camera) : m_camera(std::move(camera)) {}
    virtual ~IFrameObserver() = default;

    virtual void FrameReceived(FramePtr frame) = 0;

protected:
    CameraPtr m_camera;
};

} // namespace ZltApi
