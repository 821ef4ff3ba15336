// The logger above the loggers of all libraries of the family.
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix {

namespace {

/// Would log4cplus find an appender for this logger? It complains on the standard error stream where it finds none.
bool isHeard(log4cplus::Logger logger)
{
    const log4cplus::tstring root = log4cplus::Logger::getRoot().getName();
    while (logger.getAllAppenders().empty()) {
        if (logger.getName() == root || !logger.getAdditivity()) {
            return false;
        }
        logger = logger.getParent();
    }
    return true;
}

} // namespace

const std::string& getBaseLoggerName()
{
    static const std::string g_name = "ORLIX";
    return g_name;
}

log4cplus::Logger getBaseLogger()
{
    return log4cplus::Logger::getInstance(getBaseLoggerName());
}

void logMessage(log4cplus::Logger& logger, const int& level, const std::string& message, const std::string& file,
                int line)
{
    if (isHeard(logger)) {
        logger.log(level, message, file.c_str(), line);
    }
}

} // namespace orlix
