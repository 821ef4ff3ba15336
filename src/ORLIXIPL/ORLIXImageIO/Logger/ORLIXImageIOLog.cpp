// Logger and message manager of ORLIXImageIO.
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLog.h"

namespace orlix::image::io {

LibraryLog& getORLIXImageIOLog()
{
    static LibraryLog g_log("ORLIXImageIO");
    return g_log;
}

const std::string& getORLIXImageIOLoggerName()
{
    return getORLIXImageIOLog().getLoggerName();
}

LogMessageManager& getORLIXImageIOLogMessageManager()
{
    return getORLIXImageIOLog().getMessageManager();
}

} // namespace orlix::image::io
