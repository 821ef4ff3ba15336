// Logger and message manager of ORLIXBaseData.
#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix {

const std::string& getORLIXBaseDataLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXBaseData";
    return g_name;
}

log4cplus::Logger getORLIXBaseDataLogger()
{
    return log4cplus::Logger::getInstance(getORLIXBaseDataLoggerName());
}

LogMessageManager& getORLIXBaseDataLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXBaseData");
}

} // namespace orlix
