// Logger and message manager of ORLIXBaseProcessing.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {
class LogMessageManager;
}

namespace orlix::processor {

ORLIXBASEPROCESSING_API const std::string& getORLIXBaseProcessingLoggerName(); ///< "ORLIX.ORLIXBaseProcessing"
ORLIXBASEPROCESSING_API log4cplus::Logger getORLIXBaseProcessingLogger();
ORLIXBASEPROCESSING_API LogMessageManager& getORLIXBaseProcessingLogMessageManager();

} // namespace orlix::processor
