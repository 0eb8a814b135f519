// Which image mirror features a camera has.
#include "ReverseCapability.h"

#include "Exception.h"

#include <algorithm>

namespace KTR::DPC
{

ReverseCapability getReverseCapability(const boost::shared_ptr<CameraAbstraction>& camera)
{
    unsigned capability = 0;
    try
    {
        const auto features = camera->GetAvailableFeatures();
        const auto present = [&features](const char* name)
        { return std::find(features.begin(), features.end(), name) != features.end(); };
        capability |= present("ReverseX") ? static_cast<unsigned>(ReverseCapability::X) : 0U;
        capability |= present("ReverseY") ? static_cast<unsigned>(ReverseCapability::Y) : 0U;
    }
    catch (const System::Exception&)
    {
        return ReverseCapability::Non;
    }
    return static_cast<ReverseCapability>(capability);
}

} // namespace KTR::DPC
