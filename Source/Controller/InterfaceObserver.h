// Turns the camera API's interface events into a Qt signal.
#pragma once

#include "ZltApi/Camera.h"
#include "ZltApi/Observers.h"

#include <QObject>

// The signal is emitted on a thread of the camera API; receivers connect to it with a queued connection.
class InterfaceObserver : public QObject, public ZltApi::IInterfaceListObserver
{
    Q_OBJECT

public:
    void InterfaceListChanged(ZltApi::InterfacePtr interface, ZltApi::UpdateTriggerType reason) override;

Q_SIGNALS:
    void updateInterfaceList();
};
