// Logger and message manager of ORLIXIPLUtility.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {
class LogMessageManager;
}

namespace orlix::imaproc::util {

ORLIXIPLUTILITY_API const std::string& getORLIXIPLUtilityLoggerName(); ///< "ORLIX.ORLIXIPLUtility"
ORLIXIPLUTILITY_API log4cplus::Logger getORLIXIPLUtilityLogger();
ORLIXIPLUTILITY_API LogMessageManager& getORLIXIPLUtilityLogMessageManager();

} // namespace orlix::imaproc::util
