// Logger and message manager of ORLIXBaseData.
#pragma once

#include "ORLIX/ORLIXBaseData/Export.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

ORLIXBASEDATA_API LibraryLog& getORLIXBaseDataLog();
ORLIXBASEDATA_API const std::string& getORLIXBaseDataLoggerName(); ///< "ORLIX.ORLIXBaseData"
ORLIXBASEDATA_API LogMessageManager& getORLIXBaseDataLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXBaseDataLogger()
{
    return TLogger::getInstance(getORLIXBaseDataLoggerName());
}

} // namespace orlix
