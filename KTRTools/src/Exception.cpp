// The exception that every failure of the camera and adapter layers derives from.
#include "Exception.h"

#include "Logger.h"

#include <cassert>

namespace KTR::System
{

Exception::Exception(const std::string& message, bool log) : m_strMessage(message)
{
    assert(!m_strMessage.empty());
    if (log)
    {
        this->log();
    }
}

Exception::~Exception() = default;

std::string Exception::ToString() const
{
    return m_strMessage;
}

const std::string& Exception::GetMessage() const
{
    return m_strMessage;
}

void Exception::log() const
{
    Tools::Logger::LogMessage("Exception: " + ToString());
}

} // namespace KTR::System
