// Logger and message manager of ORLIXCore.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {
class LogMessageManager;
}

namespace orlix::core {

ORLIXCORE_API const std::string& getORLIXCoreLoggerName(); ///< "ORLIX.ORLIXCore"
ORLIXCORE_API log4cplus::Logger getORLIXCoreLogger();
ORLIXCORE_API LogMessageManager& getORLIXCoreLogMessageManager();

} // namespace orlix::core
