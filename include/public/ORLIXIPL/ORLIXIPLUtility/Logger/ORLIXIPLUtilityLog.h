// Logger and message manager of ORLIXIPLUtility.
#pragma once

#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix::imaproc::util {

ORLIXIPLUTILITY_API LibraryLog& getORLIXIPLUtilityLog();
ORLIXIPLUTILITY_API const std::string& getORLIXIPLUtilityLoggerName(); ///< "ORLIX.ORLIXIPLUtility"
ORLIXIPLUTILITY_API LogMessageManager& getORLIXIPLUtilityLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXIPLUtilityLogger()
{
    return TLogger::getInstance(getORLIXIPLUtilityLoggerName());
}

} // namespace orlix::imaproc::util
