// Logger and message manager of ORLIXImageProcessing.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {
class LogMessageManager;
}

namespace orlix::imaproc {

ORLIXIMAGEPROCESSING_API const std::string& getORLIXImageProcessingLoggerName(); ///< "ORLIX.ORLIXImageProcessing"
ORLIXIMAGEPROCESSING_API log4cplus::Logger getORLIXImageProcessingLogger();
ORLIXIMAGEPROCESSING_API LogMessageManager& getORLIXImageProcessingLogMessageManager();

} // namespace orlix::imaproc
