// Raising: what is logged, what is thrown, and what happens when formatter or logger fail.
#include "ORLIX/ORLIXUtil/Raise.h"

#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"
#include "ORLIXUtil/TestAppenders.h"
#include "ORLIXUtil/TestCatalogue.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <typeinfo>

namespace orlix::test {
namespace {

constexpr const char* g_failed = "Exception thrown while processing message";

log4cplus::Logger testLogger()
{
    return log4cplus::Logger::getInstance("ORLIX.UtilTests");
}

struct Unprintable
{};

std::ostream& operator<<(std::ostream&, const Unprintable&)
{
    throw std::runtime_error("can't be printed");
}

/// Raises with these arguments and gives back what was thrown; its dynamic type has to be `TException`.
template <class TException, class... TArgs>
TException caught(eTestMessage::domain id, const TArgs&... args)
{
    try {
        raise<eTestMessage>(ORLIX_HERE, id, args...);
    } catch (const BaseException& exception) {
        EXPECT_EQ(typeid(exception), typeid(TException)) << exception.what();
        return dynamic_cast<const TException&>(exception);
    }
}

void expectFailedProcessing(const BaseException& exception, const std::string& cause)
{
    EXPECT_EQ(exception.getMessage(), g_failed);
    EXPECT_TRUE(exception.hasCause());
    EXPECT_EQ(exception.getCause(), cause);
    EXPECT_NE(exception.getFunction().find("caught"), std::string::npos);
    EXPECT_EQ(exception.getFile(), __FILE__);
    EXPECT_GT(exception.getLine(), 0);
}

TEST(Raise, throwsTheCataloguesExceptionWithTextAndPlace)
{
    const auto exception = caught<TestException>(eTestMessage::eSizes, "A plan", 3UL, 2.5);
    EXPECT_EQ(exception.getMessage(), "A plan is 3 wide and 2.500000 high");
    EXPECT_NE(exception.getFunction().find("caught"), std::string::npos);
    EXPECT_EQ(exception.getFile(), __FILE__);
    EXPECT_FALSE(exception.hasCause());
}

TEST(Raise, logsOnceAsAnError)
{
    AttachedAppender<RecordingAppender> appender(getBaseLogger());
    const auto exception = caught<TestException>(eTestMessage::ePlain);
    const auto& events = appender.get().m_events;
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].logger, "ORLIX.UtilTests");
    EXPECT_EQ(events[0].level, 40000);
    EXPECT_EQ(events[0].message, "Nothing to add");
    EXPECT_EQ(events[0].file, __FILE__);
    EXPECT_EQ(events[0].line, exception.getLine());
}

TEST(Raise, throwsTheFullTextWhenTheLoggerIsDisabled)
{
    AttachedAppender<RecordingAppender> appender(getBaseLogger());
    log4cplus::Logger logger = testLogger();
    logger.setLogLevel(log4cplus::OFF_LOG_LEVEL);
    const auto exception = caught<TestException>(eTestMessage::eSizes, "A plan", 3, 2.5);
    logger.setLogLevel(log4cplus::NOT_SET_LOG_LEVEL);
    EXPECT_EQ(exception.getMessage(), "A plan is 3 wide and 2.500000 high");
    EXPECT_TRUE(appender.get().m_events.empty());
}

TEST(Raise, wrapsAWrongNumberOfArguments)
{
    const auto exception = caught<BaseException>(eTestMessage::eSizes, "A plan");
    EXPECT_EQ(exception.getMessage(), g_failed);
    EXPECT_NE(exception.getCause().find("\"%s is %d wide and %f high\", can't be built from 1 arguments"),
              std::string::npos)
        << exception.getCause();
    EXPECT_EQ(caught<BaseException>(eTestMessage::ePlain, 1).getMessage(), g_failed);
}

TEST(Raise, wrapsAnUnknownId)
{
    const auto exception = caught<BaseException>(eTestMessage::eUnknown);
    EXPECT_EQ(exception.getMessage(), g_failed);
    EXPECT_NE(exception.getCause().find("Message 99"), std::string::npos) << exception.getCause();
}

TEST(Raise, wrapsTheFailureOfAnArgument)
{
    expectFailedProcessing(caught<BaseException>(eTestMessage::eSizes, Unprintable(), 3, 2.5), "can't be printed");
}

TEST(Raise, logsTheFailureOnTheBaseLogger)
{
    AttachedAppender<RecordingAppender> appender(getBaseLogger());
    const auto exception = caught<BaseException>(eTestMessage::eSizes, Unprintable(), 3, 2.5);
    const auto& events = appender.get().m_events;
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].logger, "ORLIX");
    EXPECT_EQ(events[0].level, 40000);
    EXPECT_EQ(events[0].message, g_failed + (" in " + exception.getFunction()));
    EXPECT_EQ(events[0].file, __FILE__);
}

TEST(Raise, wrapsAStandardExceptionOutOfTheLogger)
{
    AttachedAppender<FailingAppender> appender(testLogger(), [] { throw std::runtime_error("disk full"); });
    expectFailedProcessing(caught<BaseException>(eTestMessage::ePlain), "disk full");
}

TEST(Raise, wrapsABaseExceptionOutOfTheLogger)
{
    AttachedAppender<FailingAppender> appender(testLogger(), [] {
        throw ORLIXUtilException("no room", "append", "appender.cpp", 1, std::runtime_error("disk full"));
    });
    expectFailedProcessing(caught<BaseException>(eTestMessage::ePlain), "no room\ndisk full");
}

TEST(Raise, wrapsAnythingElseOutOfTheLogger)
{
    AttachedAppender<FailingAppender> appender(testLogger(), [] { throw 42; });
    expectFailedProcessing(caught<BaseException>(eTestMessage::ePlain), "");
}

TEST(Raise, survivesABaseLoggerThatFailsAsWell)
{
    AttachedAppender<FailingAppender> appender(getBaseLogger(), [] { throw std::runtime_error("disk full"); });
    expectFailedProcessing(caught<BaseException>(eTestMessage::ePlain), "disk full");
}

} // namespace
} // namespace orlix::test
