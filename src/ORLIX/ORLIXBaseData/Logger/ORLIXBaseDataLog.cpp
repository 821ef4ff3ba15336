// Logger and message manager of ORLIXBaseData.
#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLog.h"

namespace orlix {

LibraryLog& getORLIXBaseDataLog()
{
    static LibraryLog g_log("ORLIXBaseData");
    return g_log;
}

const std::string& getORLIXBaseDataLoggerName()
{
    return getORLIXBaseDataLog().getLoggerName();
}

LogMessageManager& getORLIXBaseDataLogMessageManager()
{
    return getORLIXBaseDataLog().getMessageManager();
}

} // namespace orlix
