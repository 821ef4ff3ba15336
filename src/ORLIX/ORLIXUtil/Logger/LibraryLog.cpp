// What a library logs under, and where its texts are.
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

namespace orlix {

LibraryLog::LibraryLog(std::string library) : m_library(std::move(library)) {}

LibraryLog::~LibraryLog() = default;

const std::string& LibraryLog::getLoggerName()
{
    const std::lock_guard<std::mutex> lock(LoggerNameMutex());
    if (m_loggerName.empty()) {
        m_loggerName = getBaseLoggerName() + "." + m_library;
    }
    return m_loggerName;
}

LogMessageManager& LibraryLog::getMessageManager() const
{
    return LogMessageManager::getInstance(m_library);
}

} // namespace orlix
