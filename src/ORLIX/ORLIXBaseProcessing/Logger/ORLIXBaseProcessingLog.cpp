// Logger and message manager of ORLIXBaseProcessing.
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"

namespace orlix::processor {

LibraryLog& getORLIXBaseProcessingLog()
{
    static LibraryLog g_log("ORLIXBaseProcessing");
    return g_log;
}

const std::string& getORLIXBaseProcessingLoggerName()
{
    return getORLIXBaseProcessingLog().getLoggerName();
}

LogMessageManager& getORLIXBaseProcessingLogMessageManager()
{
    return getORLIXBaseProcessingLog().getMessageManager();
}

} // namespace orlix::processor
