// Logger and message manager of ORLIXBaseImageTools.
#pragma once

#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix::image::tools {

ORLIXBASEIMAGETOOLS_API LibraryLog& getORLIXBaseImageToolsLog();
ORLIXBASEIMAGETOOLS_API const std::string& getORLIXBaseImageToolsLoggerName(); ///< "ORLIX.ORLIXBaseImageTools"
ORLIXBASEIMAGETOOLS_API LogMessageManager& getORLIXBaseImageToolsLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXBaseImageToolsLogger()
{
    return TLogger::getInstance(getORLIXBaseImageToolsLoggerName());
}

} // namespace orlix::image::tools
