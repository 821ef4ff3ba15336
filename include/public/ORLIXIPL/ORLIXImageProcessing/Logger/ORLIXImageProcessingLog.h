// Logger and message manager of ORLIXImageProcessing.
#pragma once

#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix::imaproc {

ORLIXIMAGEPROCESSING_API LibraryLog& getORLIXImageProcessingLog();
ORLIXIMAGEPROCESSING_API const std::string& getORLIXImageProcessingLoggerName(); ///< "ORLIX.ORLIXImageProcessing"
ORLIXIMAGEPROCESSING_API LogMessageManager& getORLIXImageProcessingLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXImageProcessingLogger()
{
    return TLogger::getInstance(getORLIXImageProcessingLoggerName());
}

} // namespace orlix::imaproc
