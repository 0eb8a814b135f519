// The one sink of a process for log messages.
#pragma once

#include "Object.h"
#include "StaticDataInitializer.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KTR::Tools
{

// Without a logger set, messages are lost; there are no levels. The static operations may be called from any thread,
// and calls of the logger are serialised by a mutex: a logger must not log from within itself, nor when it is
// destroyed.
class Logger : public virtual System::Object
{
public:
    // Takes the place of the logger set before. Throws a KTR::System::Exception for an empty pointer.
    static void SetLogger(const boost::shared_ptr<Logger>& logger);
    static void ResetLogger();
    static bool IsLoggerSet();

    static void LogMessage(const std::string& message);
    // Logs that an operation was entered.
    static void LogEntry(const std::string& operation);

    // Receives one message; called under the mutex.
    virtual void Log(const std::string& message) = 0;

private:
    struct Data;
    static boost::shared_ptr<Data> accessData();
    static void replaceLogger(boost::shared_ptr<Logger> logger);
};

} // namespace KTR::Tools
