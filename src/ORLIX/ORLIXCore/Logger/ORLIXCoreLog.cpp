// Logger and message manager of ORLIXCore.
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix::core {

const std::string& getORLIXCoreLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXCore";
    return g_name;
}

log4cplus::Logger getORLIXCoreLogger()
{
    return log4cplus::Logger::getInstance(getORLIXCoreLoggerName());
}

LogMessageManager& getORLIXCoreLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXCore");
}

} // namespace orlix::core
