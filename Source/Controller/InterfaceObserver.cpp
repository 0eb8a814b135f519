#include "InterfaceObserver.h"

void InterfaceObserver::InterfaceListChanged(ZltApi::InterfacePtr, ZltApi::UpdateTriggerType)
{
    Q_EMIT updateInterfaceList();
}
