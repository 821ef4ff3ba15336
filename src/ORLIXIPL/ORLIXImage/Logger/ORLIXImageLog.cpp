// Logger and message manager of ORLIXImage.
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLog.h"

namespace orlix::image {

LibraryLog& getORLIXImageLog()
{
    static LibraryLog g_log("ORLIXImage");
    return g_log;
}

const std::string& getORLIXImageLoggerName()
{
    return getORLIXImageLog().getLoggerName();
}

LogMessageManager& getORLIXImageLogMessageManager()
{
    return getORLIXImageLog().getMessageManager();
}

} // namespace orlix::image
