// Logger and message manager of ORLIXUtil.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

ORLIXUTIL_API LibraryLog& getORLIXUtilLog();
ORLIXUTIL_API const std::string& getORLIXUtilLoggerName(); ///< "ORLIX.ORLIXUtil"
ORLIXUTIL_API LogMessageManager& getORLIXUtilLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXUtilLogger()
{
    return TLogger::getInstance(getORLIXUtilLoggerName());
}

} // namespace orlix
