// The exception for a failed call of the camera API.
#pragma once

#include "Exception.h"
#include "ZltApi/ResultCodes.h"

#include <string>

namespace KTR::FeatureHelper
{

// Logs itself at construction, without the code.
class Exception : public virtual System::Exception
{
public:
    Exception(const std::string& message, ZltErrorType error);

    // The message, followed by the code as a decimal number.
    std::string ToString() const override;
    ~Exception() override;

    ZltErrorType GetError() const;

private:
    ZltErrorType m_error;
};

} // namespace KTR::FeatureHelper
