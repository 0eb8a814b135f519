// One look-up of a camera feature by name.
#include "FeatureWrapper.h"

#include "FeatureHelperException.h"
#include "ZltApi/Camera.h"

#include <boost/format.hpp>

FeatureWrapper::FeatureWrapper(const std::shared_ptr<ZltApi::Camera>& camera, const std::string& name)
{
    const ZltErrorType result = camera->GetFeatureByName(name.c_str(), m_feature);
    if (result != ZltErrorSuccess || !m_feature)
    {
        throw KTR::FeatureHelper::Exception(str(boost::format("Could not get feature \"%1%\".") % name), result);
    }
}
