// Logger and message manager of ORLIXUtil.
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLog.h"

namespace orlix {

LibraryLog& getORLIXUtilLog()
{
    static LibraryLog g_log("ORLIXUtil");
    return g_log;
}

const std::string& getORLIXUtilLoggerName()
{
    return getORLIXUtilLog().getLoggerName();
}

LogMessageManager& getORLIXUtilLogMessageManager()
{
    return getORLIXUtilLog().getMessageManager();
}

} // namespace orlix
