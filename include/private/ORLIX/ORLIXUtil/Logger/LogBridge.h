// The way to log4cplus in a process that has it.
#pragma once

#include <string>

namespace orlix {

/// Of the module that links log4cplus: logs if the logger of that name is enabled for the level and heard by anybody.
using LogFunction = void (*)(const std::string& loggerName, int level, const std::string& message,
                             const std::string& file, int line);

/// The module's name for it.
constexpr const char* g_logFunctionName = "orlixLogToLog4cplus";

/// Null as long as log4cplus is not in the process: there is nobody to hear then. Otherwise the module is loaded the
/// first time. May be called from any thread.
LogFunction findLogFunction();

} // namespace orlix
