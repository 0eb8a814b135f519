// Ownership of an open device.
#include "Aravis/DevicePtr.h"

#include "Aravis/Alarm.h"

namespace GenICam
{

namespace
{

void OnReferencesChanged(gpointer alarm, GObject*, gboolean isLast)
{
    if (isLast != FALSE)
    {
        static_cast<Alarm*>(alarm)->Ring();
    }
}

} // namespace

void DeviceRelease::operator()(ArvDevice* device) const
{
    Alarm isAlone;
    g_object_add_toggle_ref(G_OBJECT(device), &OnReferencesChanged, &isAlone);
    g_object_unref(device);
    while (!isAlone.Wait(std::chrono::seconds(1)))
    {
    }
    g_object_remove_toggle_ref(G_OBJECT(device), &OnReferencesChanged, &isAlone);
}

} // namespace GenICam
