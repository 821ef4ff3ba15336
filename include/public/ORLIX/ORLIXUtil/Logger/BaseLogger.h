// The logger above the loggers of all libraries of the family.
//
// The libraries don't link log4cplus: it starts threads as soon as it is loaded, which no program pays for that logs
// nothing. A program that gives or takes a log4cplus::Logger here includes <log4cplus/logger.h> and links log4cplus.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <concepts>
#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

/// Levels of log4cplus.
constexpr int g_errorLogLevel = 40000;
constexpr int g_traceLogLevel = 0;

/// "ORLIX". Each library logs under a child of it, "ORLIX.ORLIXUtil" for example.
ORLIXUTIL_API const std::string& getBaseLoggerName();

template <class TLogger = log4cplus::Logger>
TLogger getBaseLogger()
{
    return TLogger::getInstance(getBaseLoggerName());
}

namespace details {

/// Would log4cplus find an appender for this logger? It complains on the standard error stream where it finds none.
template <class TLogger>
bool isHeard(TLogger logger)
{
    const auto root = TLogger::getRoot().getName();
    while (logger.getAllAppenders().empty()) {
        if (logger.getName() == root || !logger.getAdditivity()) {
            return false;
        }
        logger = logger.getParent();
    }
    return true;
}

} // namespace details

/// Hands a message to the appenders that the program has set up for `logger` or one above it, if the logger is enabled
/// for `level`. Does nothing where no appender is set up, so a program that configures no logging sees none. An
/// exception out of an appender passes through. May be called from any thread.
template <class TLogger>
requires std::same_as<TLogger, log4cplus::Logger>
void logMessage(TLogger& logger, const int& level, const std::string& message, const std::string& file, int line)
{
    if (details::isHeard(logger)) {
        logger.log(level, message, file.c_str(), line);
    }
}

/// The same for the logger of that name, by code that doesn't link log4cplus: does nothing where log4cplus is not in
/// the process.
ORLIXUTIL_API void logMessage(const std::string& loggerName, const int& level, const std::string& message,
                              const std::string& file, int line);

} // namespace orlix
