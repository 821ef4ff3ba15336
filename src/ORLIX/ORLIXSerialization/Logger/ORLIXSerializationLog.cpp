// Logger and message manager of ORLIXSerialization.
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLog.h"

namespace orlix {

LibraryLog& getORLIXSerializationLog()
{
    static LibraryLog g_log("ORLIXSerialization");
    return g_log;
}

const std::string& getORLIXSerializationLoggerName()
{
    return getORLIXSerializationLog().getLoggerName();
}

LogMessageManager& getORLIXSerializationLogMessageManager()
{
    return getORLIXSerializationLog().getMessageManager();
}

} // namespace orlix
