// Logger and message manager of ORLIXUtil.
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix {

const std::string& getORLIXUtilLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXUtil";
    return g_name;
}

log4cplus::Logger getORLIXUtilLogger()
{
    return log4cplus::Logger::getInstance(getORLIXUtilLoggerName());
}

LogMessageManager& getORLIXUtilLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXUtil");
}

} // namespace orlix
