// The exception that every failure of the camera and adapter layers derives from.
#pragma once

#include "StaticDataInitializer.h" // so that static objects may throw: a failure logs itself through the registry

#include <string>

namespace KTR::System
{

// Carries one full sentence for the user. Deliberately not a std::exception: the camera layers have one family of their
// own, and a handler for it never swallows a programming error of the standard library.
class Exception
{
public:
    // An empty message is a programming fault and ends the process, also in release builds. With log set the text goes
    // to KTR::Tools::Logger at once; at that moment the object is still a plain KTR::System::Exception.
    Exception(const std::string& message, bool log);
    virtual ~Exception();

    // What a user reads; derived classes add to the message.
    virtual std::string ToString() const;

    const std::string& GetMessage() const;

protected:
    void log() const;

private:
    std::string m_strMessage;
};

} // namespace KTR::System
