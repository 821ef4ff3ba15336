// Logger and message manager of ORLIXIPLUtility.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix::imaproc::util {

const std::string& getORLIXIPLUtilityLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXIPLUtility";
    return g_name;
}

log4cplus::Logger getORLIXIPLUtilityLogger()
{
    return log4cplus::Logger::getInstance(getORLIXIPLUtilityLoggerName());
}

LogMessageManager& getORLIXIPLUtilityLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXIPLUtility");
}

} // namespace orlix::imaproc::util
