// Logger and message manager of ORLIXBaseProcessing.
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix::processor {

const std::string& getORLIXBaseProcessingLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXBaseProcessing";
    return g_name;
}

log4cplus::Logger getORLIXBaseProcessingLogger()
{
    return log4cplus::Logger::getInstance(getORLIXBaseProcessingLoggerName());
}

LogMessageManager& getORLIXBaseProcessingLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXBaseProcessing");
}

} // namespace orlix::processor
