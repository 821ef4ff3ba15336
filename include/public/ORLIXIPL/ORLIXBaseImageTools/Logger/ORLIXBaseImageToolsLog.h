// Logger and message manager of ORLIXBaseImageTools.
#pragma once

#include "ORLIXIPL/ORLIXBaseImageTools/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

class LogMessageManager;

namespace image::tools {

ORLIXBASEIMAGETOOLS_API const std::string& getORLIXBaseImageToolsLoggerName(); ///< "ORLIX.ORLIXBaseImageTools"
ORLIXBASEIMAGETOOLS_API log4cplus::Logger getORLIXBaseImageToolsLogger();
ORLIXBASEIMAGETOOLS_API LogMessageManager& getORLIXBaseImageToolsLogMessageManager();

} // namespace image::tools
} // namespace orlix
