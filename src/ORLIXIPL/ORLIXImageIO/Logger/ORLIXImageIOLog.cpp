// Logger and message manager of ORLIXImageIO.
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix::image::io {

const std::string& getORLIXImageIOLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXImageIO";
    return g_name;
}

log4cplus::Logger getORLIXImageIOLogger()
{
    return log4cplus::Logger::getInstance(getORLIXImageIOLoggerName());
}

LogMessageManager& getORLIXImageIOLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXImageIO");
}

} // namespace orlix::image::io
