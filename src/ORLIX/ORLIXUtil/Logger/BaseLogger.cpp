// The logger above the loggers of all libraries of the family.
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include "ORLIX/ORLIXUtil/Logger/LogBridge.h"

namespace orlix {

const std::string& getBaseLoggerName()
{
    static const std::string g_name = "ORLIX";
    return g_name;
}

void logMessage(const std::string& loggerName, const int& level, const std::string& message, const std::string& file,
                int line)
{
    if (const LogFunction log = findLogFunction()) {
        log(loggerName, level, message, file, line);
    }
}

} // namespace orlix
