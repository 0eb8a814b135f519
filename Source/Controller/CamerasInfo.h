// One row of the displayed camera list.
#pragma once

#include <QString>

struct CamerasInfo
{
    bool dpc = false;
    bool access = false; // it can be opened now
    QString name;
    QString model;
    QString ID;
    QString serial;
    QString interfaceID; // of the interface that the camera hangs on
};
