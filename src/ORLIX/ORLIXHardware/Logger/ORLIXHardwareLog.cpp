// Logger and message manager of ORLIXHardware.
#include "ORLIX/ORLIXHardware/Logger/ORLIXHardwareLog.h"

namespace orlix::hard {

LibraryLog& getORLIXHardwareLog()
{
    static LibraryLog g_log("ORLIXHardware");
    return g_log;
}

const std::string& getORLIXHardwareLoggerName()
{
    return getORLIXHardwareLog().getLoggerName();
}

LogMessageManager& getORLIXHardwareLogMessageManager()
{
    return getORLIXHardwareLog().getMessageManager();
}

} // namespace orlix::hard
