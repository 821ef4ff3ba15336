// Logger and message manager of ORLIXSerialization.
#pragma once

#include "ORLIX/ORLIXSerialization/Export.h"

#include <string>

namespace log4cplus {
class Logger;
}

namespace orlix {

class LogMessageManager;

ORLIXSERIALIZATION_API const std::string& getORLIXSerializationLoggerName(); ///< "ORLIX.ORLIXSerialization"
ORLIXSERIALIZATION_API log4cplus::Logger getORLIXSerializationLogger();
ORLIXSERIALIZATION_API LogMessageManager& getORLIXSerializationLogMessageManager();

} // namespace orlix
