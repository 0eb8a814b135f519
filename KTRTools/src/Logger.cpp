// The one sink of a process for log messages.
#include "Logger.h"

#include "Exception.h"
#include "StaticData.h"

#include <mutex>

namespace KTR::Tools
{

struct Logger::Data
{
    std::mutex mutex;
    boost::shared_ptr<Logger> logger;
};

boost::shared_ptr<Logger::Data> Logger::accessData()
{
    static void* s_slot = nullptr;
    return System::StaticData::Access<Data>(s_slot);
}

void Logger::replaceLogger(boost::shared_ptr<Logger> logger)
{
    const boost::shared_ptr<Data> data = accessData();
    const std::lock_guard<std::mutex> lock(data->mutex);
    // The old logger goes with the parameter, after the lock is released.
    data->logger.swap(logger);
}

void Logger::SetLogger(const boost::shared_ptr<Logger>& logger)
{
    if (!logger)
    {
        throw System::Exception("No logger passed.", true);
    }
    replaceLogger(logger);
}

void Logger::ResetLogger()
{
    replaceLogger({});
}

bool Logger::IsLoggerSet()
{
    const boost::shared_ptr<Data> data = accessData();
    const std::lock_guard<std::mutex> lock(data->mutex);
    return static_cast<bool>(data->logger);
}

void Logger::LogMessage(const std::string& message)
{
    const boost::shared_ptr<Data> data = accessData();
    const std::lock_guard<std::mutex> lock(data->mutex);
    if (data->logger)
    {
        data->logger->Log(message);
    }
}

void Logger::LogEntry(const std::string& operation)
{
    LogMessage(operation + " called");
}

} // namespace KTR::Tools
