// Logger and message manager of ORLIXBaseImageTools.
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLog.h"

namespace orlix::image::tools {

LibraryLog& getORLIXBaseImageToolsLog()
{
    static LibraryLog g_log("ORLIXBaseImageTools");
    return g_log;
}

const std::string& getORLIXBaseImageToolsLoggerName()
{
    return getORLIXBaseImageToolsLog().getLoggerName();
}

LogMessageManager& getORLIXBaseImageToolsLogMessageManager()
{
    return getORLIXBaseImageToolsLog().getMessageManager();
}

} // namespace orlix::image::tools
