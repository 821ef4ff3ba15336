// Logger and message manager of ORLIXImageIO.
#pragma once

#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"
#include "ORLIXIPL/ORLIXImageIO/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix::image::io {

ORLIXIMAGEIO_API LibraryLog& getORLIXImageIOLog();
ORLIXIMAGEIO_API const std::string& getORLIXImageIOLoggerName(); ///< "ORLIX.ORLIXImageIO"
ORLIXIMAGEIO_API LogMessageManager& getORLIXImageIOLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXImageIOLogger()
{
    return TLogger::getInstance(getORLIXImageIOLoggerName());
}

} // namespace orlix::image::io
