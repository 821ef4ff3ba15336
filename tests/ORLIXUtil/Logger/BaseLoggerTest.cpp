// Who hears what is logged, and that nobody does unless the program wants it.
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLog.h"
#include "ORLIXUtil/TestAppenders.h"

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

void logTo(log4cplus::Logger logger, int level = log4cplus::ERROR_LOG_LEVEL)
{
    logMessage(logger, level, "something", "file.cpp", 17);
}

TEST(BaseLogger, isTheParentOfTheLibrariesLoggers)
{
    EXPECT_EQ(getBaseLoggerName(), "ORLIX");
    EXPECT_EQ(getBaseLogger().getName(), "ORLIX");
    EXPECT_EQ(getORLIXUtilLoggerName(), "ORLIX.ORLIXUtil");
    EXPECT_EQ(getORLIXUtilLogger().getName(), "ORLIX.ORLIXUtil");
    EXPECT_EQ(getORLIXUtilLogger().getParent().getName(), "ORLIX");
    EXPECT_EQ(getORLIXUtilLogMessageManager().getName(), "ORLIXUtil");
}

TEST(BaseLogger, printsNothingUnlessConfigured)
{
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    logTo(getORLIXUtilLogger());
    logTo(getBaseLogger());
    logTo(log4cplus::Logger::getRoot());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(BaseLogger, reachesTheAppendersOfTheProgram)
{
    for (auto logger : {getORLIXUtilLogger(), getBaseLogger(), log4cplus::Logger::getRoot()}) {
        AttachedAppender<RecordingAppender> appender(logger);
        logTo(getORLIXUtilLogger());
        const auto& events = appender.get().m_events;
        ASSERT_EQ(events.size(), 1u) << logger.getName();
        EXPECT_EQ(events[0].logger, "ORLIX.ORLIXUtil");
        EXPECT_EQ(events[0].message, "something");
        EXPECT_EQ(events[0].file, "file.cpp");
        EXPECT_EQ(events[0].line, 17);
    }
}

TEST(BaseLogger, isReachedByNameToo)
{
    AttachedAppender<RecordingAppender> appender(getBaseLogger());
    logMessage("ORLIX.Some", g_errorLogLevel, "something", "file.cpp", 17);
    getBaseLogger().setLogLevel(log4cplus::WARN_LOG_LEVEL);
    logMessage("ORLIX.Some", log4cplus::INFO_LOG_LEVEL, "too little", "file.cpp", 18);
    getBaseLogger().setLogLevel(log4cplus::NOT_SET_LOG_LEVEL);
    const auto& events = appender.get().m_events;
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].logger, "ORLIX.Some");
    EXPECT_EQ(events[0].level, log4cplus::ERROR_LOG_LEVEL);
    EXPECT_EQ(events[0].message, "something");
    EXPECT_EQ(events[0].file, "file.cpp");
    EXPECT_EQ(events[0].line, 17);
}

TEST(BaseLogger, respectsTheLevelOfTheProgram)
{
    AttachedAppender<RecordingAppender> appender(getBaseLogger());
    getBaseLogger().setLogLevel(log4cplus::WARN_LOG_LEVEL);
    logTo(getORLIXUtilLogger(), log4cplus::INFO_LOG_LEVEL);
    logTo(getORLIXUtilLogger(), log4cplus::ERROR_LOG_LEVEL);
    getBaseLogger().setLogLevel(log4cplus::NOT_SET_LOG_LEVEL);
    ASSERT_EQ(appender.get().m_events.size(), 1u);
    EXPECT_EQ(appender.get().m_events[0].level, log4cplus::ERROR_LOG_LEVEL);
}

TEST(BaseLogger, staysSilentWhereTheProgramCutsALoggerOff)
{
    AttachedAppender<RecordingAppender> appender(getBaseLogger());
    getORLIXUtilLogger().setAdditivity(false);
    testing::internal::CaptureStderr();
    logTo(getORLIXUtilLogger());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    getORLIXUtilLogger().setAdditivity(true);
    EXPECT_TRUE(appender.get().m_events.empty());
}

} // namespace
} // namespace orlix::test
