// Logger and message manager of ORLIXImage.
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix::image {

const std::string& getORLIXImageLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXImage";
    return g_name;
}

log4cplus::Logger getORLIXImageLogger()
{
    return log4cplus::Logger::getInstance(getORLIXImageLoggerName());
}

LogMessageManager& getORLIXImageLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXImage");
}

} // namespace orlix::image
