// The exception for a failed call of the camera API.
#include "FeatureHelperException.h"

#include <boost/format.hpp>

#include <cstdint>

namespace KTR::FeatureHelper
{

Exception::Exception(const std::string& message, ZltErrorType error) : System::Exception(message, true), m_error(error)
{
}

Exception::~Exception() = default;

std::string Exception::ToString() const
{
    return str(boost::format("%1% (Error code: %2%)") % System::Exception::ToString() %
               static_cast<std::int32_t>(m_error));
}

ZltErrorType Exception::GetError() const
{
    return m_error;
}

} // namespace KTR::FeatureHelper
