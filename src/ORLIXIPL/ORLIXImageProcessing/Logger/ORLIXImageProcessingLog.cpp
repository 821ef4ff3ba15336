// Logger and message manager of ORLIXImageProcessing.
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix::imaproc {

const std::string& getORLIXImageProcessingLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXImageProcessing";
    return g_name;
}

log4cplus::Logger getORLIXImageProcessingLogger()
{
    return log4cplus::Logger::getInstance(getORLIXImageProcessingLoggerName());
}

LogMessageManager& getORLIXImageProcessingLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXImageProcessing");
}

} // namespace orlix::imaproc
