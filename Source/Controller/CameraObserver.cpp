#include "CameraObserver.h"

void CameraObserver::CameraListChanged(ZltApi::CameraPtr camera, ZltApi::UpdateTriggerType reason)
{
    Q_EMIT CameraListChangedSignal(camera, reason);
}
