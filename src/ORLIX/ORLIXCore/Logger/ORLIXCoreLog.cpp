// Logger and message manager of ORLIXCore.
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLog.h"

namespace orlix::core {

LibraryLog& getORLIXCoreLog()
{
    static LibraryLog g_log("ORLIXCore");
    return g_log;
}

const std::string& getORLIXCoreLoggerName()
{
    return getORLIXCoreLog().getLoggerName();
}

LogMessageManager& getORLIXCoreLogMessageManager()
{
    return getORLIXCoreLog().getMessageManager();
}

} // namespace orlix::core
