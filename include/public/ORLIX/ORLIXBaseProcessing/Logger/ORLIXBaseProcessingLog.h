// Logger and message manager of ORLIXBaseProcessing.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix::processor {

ORLIXBASEPROCESSING_API LibraryLog& getORLIXBaseProcessingLog();
ORLIXBASEPROCESSING_API const std::string& getORLIXBaseProcessingLoggerName(); ///< "ORLIX.ORLIXBaseProcessing"
ORLIXBASEPROCESSING_API LogMessageManager& getORLIXBaseProcessingLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXBaseProcessingLogger()
{
    return TLogger::getInstance(getORLIXBaseProcessingLoggerName());
}

} // namespace orlix::processor
