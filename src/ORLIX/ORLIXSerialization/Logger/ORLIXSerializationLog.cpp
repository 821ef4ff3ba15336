// Logger and message manager of ORLIXSerialization.
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix {

const std::string& getORLIXSerializationLoggerName()
{
    static const std::string g_name = getBaseLoggerName() + ".ORLIXSerialization";
    return g_name;
}

log4cplus::Logger getORLIXSerializationLogger()
{
    return log4cplus::Logger::getInstance(getORLIXSerializationLoggerName());
}

LogMessageManager& getORLIXSerializationLogMessageManager()
{
    return LogMessageManager::getInstance("ORLIXSerialization");
}

} // namespace orlix
