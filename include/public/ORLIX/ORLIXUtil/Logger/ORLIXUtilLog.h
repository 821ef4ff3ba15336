// Logger and message manager of ORLIXUtil.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

class LogMessageManager;

ORLIXUTIL_API const std::string& getORLIXUtilLoggerName(); ///< "ORLIX.ORLIXUtil"
ORLIXUTIL_API log4cplus::Logger getORLIXUtilLogger();
ORLIXUTIL_API LogMessageManager& getORLIXUtilLogMessageManager();

} // namespace orlix
