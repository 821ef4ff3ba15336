// Logger and message manager of ORLIXHardware.
#pragma once

#include "ORLIX/ORLIXHardware/Export.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix::hard {

ORLIXHARDWARE_API LibraryLog& getORLIXHardwareLog();
ORLIXHARDWARE_API const std::string& getORLIXHardwareLoggerName(); ///< "ORLIX.ORLIXHardware"
ORLIXHARDWARE_API LogMessageManager& getORLIXHardwareLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXHardwareLogger()
{
    return TLogger::getInstance(getORLIXHardwareLoggerName());
}

} // namespace orlix::hard
