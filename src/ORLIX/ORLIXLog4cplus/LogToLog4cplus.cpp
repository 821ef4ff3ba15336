// Hands messages to log4cplus. A module of its own, which ORLIXUtil loads where a program has log4cplus in it.
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"
#include "ORLIX/ORLIXUtil/Logger/LogBridge.h"

#include <log4cplus/logger.h>

#include <type_traits>

static_assert(orlix::g_errorLogLevel == log4cplus::ERROR_LOG_LEVEL);
static_assert(orlix::g_traceLogLevel == log4cplus::TRACE_LOG_LEVEL);

extern "C" ORLIXUTIL_API void orlixLogToLog4cplus(const std::string& loggerName, int level, const std::string& message,
                                                  const std::string& file, int line)
{
    log4cplus::Logger logger = log4cplus::Logger::getInstance(loggerName);
    if (logger.isEnabledFor(level)) {
        orlix::logMessage(logger, level, message, file, line);
    }
}

static_assert(std::is_same_v<decltype(&orlixLogToLog4cplus), orlix::LogFunction>);
