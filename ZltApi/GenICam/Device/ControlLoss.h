// News of cameras that have gone, from Aravis's threads.
#pragma once

#include <arv.h>

#include <functional>

namespace GenICam
{

// As long as this object lives, the function is called when the connection to the device is lost or another program has
// taken control: on a thread of Aravis's, any number of times. When the destructor has returned no call is running or
// will come. The function must not destroy this object.
class ControlLoss
{
public:
    ControlLoss(ArvDevice* device, std::function<void()> lost);
    ~ControlLoss();
    ControlLoss(const ControlLoss&) = delete;
    ControlLoss& operator=(const ControlLoss&) = delete;

private:
    ArvDevice* const m_device;
    unsigned long m_handler = 0;
};

} // namespace GenICam
