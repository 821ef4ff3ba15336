// Logger and message manager of ORLIXImageIO.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

class LogMessageManager;

namespace image::io {

ORLIXIMAGEIO_API const std::string& getORLIXImageIOLoggerName(); ///< "ORLIX.ORLIXImageIO"
ORLIXIMAGEIO_API log4cplus::Logger getORLIXImageIOLogger();
ORLIXIMAGEIO_API LogMessageManager& getORLIXImageIOLogMessageManager();

} // namespace image::io
} // namespace orlix
