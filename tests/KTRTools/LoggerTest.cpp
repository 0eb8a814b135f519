// Tests of the exception and the logger.
#include "Logger.h"
#include "Failure.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

using KTR::System::Exception;
using KTR::Tools::Logger;
using testing::ElementsAre;

struct RecordingLogger : Logger
{
    void Log(const std::string& message) override { messages.push_back(message); }
    std::vector<std::string> messages;
};

// A derived exception logs its base's text only, and only when asked to.
TEST(Logger, GetsWhatIsLoggedWhileItIsSet)
{
    struct Loud : Exception
    {
        Loud() : Exception("Loud.", true) {}
        std::string ToString() const override { return GetMessage() + " More."; }
    };
    const auto first = boost::make_shared<RecordingLogger>();
    const auto second = boost::make_shared<RecordingLogger>();
    EXPECT_FALSE(Logger::IsLoggerSet());
    Logger::LogMessage("lost");
    Logger::SetLogger(first);
    EXPECT_TRUE(Logger::IsLoggerSet());
    EXPECT_EQ(FailureOf([] { throw Loud(); }), "Loud. More.");
    Logger::LogEntry("Open");
    EXPECT_EQ(FailureOf([] { throw Exception("Quiet.", false); }), "Quiet.");
    EXPECT_EQ(FailureOf([] { Logger::SetLogger({}); }), "No logger passed.");
    Logger::SetLogger(second);
    Logger::LogMessage("to the second");
    Logger::ResetLogger();
    EXPECT_FALSE(Logger::IsLoggerSet());
    Logger::LogMessage("lost");
    EXPECT_THAT(first->messages, ElementsAre("Exception: Loud.", "Open called", "Exception: No logger passed."));
    EXPECT_THAT(second->messages, ElementsAre("to the second"));
    EXPECT_EQ(first.use_count(), 1) << "a logger that was replaced is still held";
}

TEST(ExceptionDeathTest, RefusesAnEmptyMessage)
{
    EXPECT_DEATH(throw Exception("", false), "!m_strMessage.empty\\(\\)");
}
