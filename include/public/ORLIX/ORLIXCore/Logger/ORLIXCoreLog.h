// Logger and message manager of ORLIXCore.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix::core {

ORLIXCORE_API LibraryLog& getORLIXCoreLog();
ORLIXCORE_API const std::string& getORLIXCoreLoggerName(); ///< "ORLIX.ORLIXCore"
ORLIXCORE_API LogMessageManager& getORLIXCoreLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXCoreLogger()
{
    return TLogger::getInstance(getORLIXCoreLoggerName());
}

} // namespace orlix::core
