// Turns the camera API's plug, unplug and access events into a Qt signal.
#pragma once

#include "ZltApi/Camera.h"
#include "ZltApi/Observers.h"

#include <QMetaType>
#include <QObject>

// The signal is emitted on a thread of the camera API; receivers connect to it with a queued connection.
class CameraObserver : public QObject, public ZltApi::ICameraListObserver
{
    Q_OBJECT

public:
    void CameraListChanged(ZltApi::CameraPtr camera, ZltApi::UpdateTriggerType reason) override;

Q_SIGNALS:
    void CameraListChangedSignal(ZltApi::CameraPtr camera, ZltApi::UpdateTriggerType reason);
};

Q_DECLARE_METATYPE(ZltApi::CameraPtr)
Q_DECLARE_METATYPE(ZltApi::UpdateTriggerType)
