// Logger and message manager of ORLIXBaseImageTools.
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix::image::tools {

const std::string& getORLIXBaseImageToolsLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXBaseImageTools";
    return g_name;
}

log4cplus::Logger getORLIXBaseImageToolsLogger()
{
    return log4cplus::Logger::getInstance(getORLIXBaseImageToolsLoggerName());
}

LogMessageManager& getORLIXBaseImageToolsLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXBaseImageTools");
}

} // namespace orlix::image::tools
