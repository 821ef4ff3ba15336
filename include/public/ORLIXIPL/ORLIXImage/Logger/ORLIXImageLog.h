// Logger and message manager of ORLIXImage.
#pragma once

#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"
#include "ORLIXIPL/ORLIXImage/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix::image {

ORLIXIMAGE_API LibraryLog& getORLIXImageLog();
ORLIXIMAGE_API const std::string& getORLIXImageLoggerName(); ///< "ORLIX.ORLIXImage"
ORLIXIMAGE_API LogMessageManager& getORLIXImageLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXImageLogger()
{
    return TLogger::getInstance(getORLIXImageLoggerName());
}

} // namespace orlix::image
