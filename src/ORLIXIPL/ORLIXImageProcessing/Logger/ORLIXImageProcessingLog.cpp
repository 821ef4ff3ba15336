// Logger and message manager of ORLIXImageProcessing.
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLog.h"

namespace orlix::imaproc {

LibraryLog& getORLIXImageProcessingLog()
{
    static LibraryLog g_log("ORLIXImageProcessing");
    return g_log;
}

const std::string& getORLIXImageProcessingLoggerName()
{
    return getORLIXImageProcessingLog().getLoggerName();
}

LogMessageManager& getORLIXImageProcessingLogMessageManager()
{
    return getORLIXImageProcessingLog().getMessageManager();
}

} // namespace orlix::imaproc
