// What a library logs under, and where its texts are.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <mutex>
#include <string>

namespace orlix {

class LogMessageManager;

/// One of each library, a function-local static. All functions may be called from any thread and from static
/// initialisers.
class ORLIXUTIL_API LibraryLog
{
public:
    explicit LibraryLog(std::string library);
    LibraryLog(const LibraryLog&) = delete;
    LibraryLog& operator=(const LibraryLog&) = delete;
    ~LibraryLog();

    /// "ORLIX.<library>", made on first use.
    const std::string& getLoggerName();
    /// The manager of the library's name.
    LogMessageManager& getMessageManager() const;

private:
    std::mutex& LoggerNameMutex() { return m_loggerNameMutex; }

    const std::string m_library;
    std::mutex m_loggerNameMutex;
    std::string m_loggerName;
};

} // namespace orlix
