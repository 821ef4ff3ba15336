// Logger and message manager of ORLIXBaseData.
#pragma once

#include "ORLIX/ORLIXBaseData/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

class LogMessageManager;

ORLIXBASEDATA_API const std::string& getORLIXBaseDataLoggerName(); ///< "ORLIX.ORLIXBaseData"
ORLIXBASEDATA_API log4cplus::Logger getORLIXBaseDataLogger();
ORLIXBASEDATA_API LogMessageManager& getORLIXBaseDataLogMessageManager();

} // namespace orlix
