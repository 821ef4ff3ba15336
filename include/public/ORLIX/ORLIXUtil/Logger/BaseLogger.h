// The logger above the loggers of all libraries of the family.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

/// "ORLIX". Each library logs under a child of it, "ORLIX.ORLIXUtil" for example.
ORLIXUTIL_API const std::string& getBaseLoggerName();
ORLIXUTIL_API log4cplus::Logger getBaseLogger();

/// Hands a message to the appenders that the program has set up for `logger` or one above it, if the logger is enabled
/// for `level`. Does nothing where no appender is set up, so a program that configures no logging sees none. An
/// exception out of an appender passes through. May be called from any thread.
ORLIXUTIL_API void logMessage(log4cplus::Logger& logger, const int& level, const std::string& message,
                              const std::string& file, int line);

} // namespace orlix
