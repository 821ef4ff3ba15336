// Logger and message manager of ORLIXImage.
#pragma once

#include "ORLIXIPL/ORLIXImage/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

class LogMessageManager;

namespace image {

ORLIXIMAGE_API const std::string& getORLIXImageLoggerName(); ///< "ORLIX.ORLIXImage"
ORLIXIMAGE_API log4cplus::Logger getORLIXImageLogger();
ORLIXIMAGE_API LogMessageManager& getORLIXImageLogMessageManager();

} // namespace image
} // namespace orlix
