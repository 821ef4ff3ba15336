// Logger and message manager of ORLIXIPLUtility.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

namespace orlix::imaproc::util {

LibraryLog& getORLIXIPLUtilityLog()
{
    static LibraryLog g_log("ORLIXIPLUtility");
    return g_log;
}

const std::string& getORLIXIPLUtilityLoggerName()
{
    return getORLIXIPLUtilityLog().getLoggerName();
}

LogMessageManager& getORLIXIPLUtilityLogMessageManager()
{
    return getORLIXIPLUtilityLog().getMessageManager();
}

} // namespace orlix::imaproc::util
