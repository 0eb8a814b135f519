// The mark by which a camera's description knows that a stream is running.
#include "Stream/TransportLock.h"

#include "Aravis/Ask.h"

namespace GenICam
{

namespace
{

ArvGcInteger* Mark(ArvDevice* device)
{
    ArvGcNode* const node = arv_device_get_feature(device, "TLParamsLocked");
    return ARV_IS_GC_INTEGER(node) ? ARV_GC_INTEGER(node) : nullptr;
}

} // namespace

void SetTransportLocked(ArvDevice* device, bool isLocked)
{
    if (ArvGcInteger* const mark = Mark(device))
    {
        Ask(arv_gc_integer_set_value, mark, gint64{isLocked ? 1 : 0});
    }
}

bool IsTransportLocked(ArvDevice* device)
{
    ArvGcInteger* const mark = Mark(device);
    return mark != nullptr && Ask(arv_gc_integer_get_value, mark) != 0;
}

} // namespace GenICam
