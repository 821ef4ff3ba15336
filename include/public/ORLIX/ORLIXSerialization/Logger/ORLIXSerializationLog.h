// Logger and message manager of ORLIXSerialization.
#pragma once

#include "ORLIX/ORLIXSerialization/Export.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

ORLIXSERIALIZATION_API LibraryLog& getORLIXSerializationLog();
ORLIXSERIALIZATION_API const std::string& getORLIXSerializationLoggerName(); ///< "ORLIX.ORLIXSerialization"
ORLIXSERIALIZATION_API LogMessageManager& getORLIXSerializationLogMessageManager();

/// For programs that include <log4cplus/logger.h> and link log4cplus.
template <class TLogger = log4cplus::Logger>
TLogger getORLIXSerializationLogger()
{
    return TLogger::getInstance(getORLIXSerializationLoggerName());
}

} // namespace orlix
