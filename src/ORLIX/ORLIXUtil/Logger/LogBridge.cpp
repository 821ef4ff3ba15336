// The way to log4cplus in a process that has it.
#include "ORLIX/ORLIXUtil/Logger/LogBridge.h"

#include <atomic>
#include <string_view>

#include <dlfcn.h>
#include <link.h>

namespace orlix {

namespace {

/// The module lies beside this library.
std::string findModule()
{
    Dl_info library;
    if (::dladdr(reinterpret_cast<void*>(&findLogFunction), &library) == 0) {
        return {};
    }
    const std::string file = library.dli_fname;
    return file.substr(0, file.rfind('/') + 1) + ORLIX_LOG_MODULE_FILE;
}

/// No lock of ours is held around the loader's own: a library may raise errors while the loader initialises it. Nothing
/// is closed again, since other threads may log until the process ends; the module doesn't link the family.
LogFunction loadLogFunction()
{
    void* const module = ::dlopen(findModule().c_str(), RTLD_NOW | RTLD_LOCAL);
    return module == nullptr ? nullptr : reinterpret_cast<LogFunction>(::dlsym(module, g_logFunctionName));
}

/// Looks among what is loaded; the loader alone would search its folders for each error of a program without log4cplus.
bool isAnyLog4cplusLoaded()
{
    const auto isIt = [](dl_phdr_info* library, std::size_t, void*) {
        const std::string_view file = library->dlpi_name;
        return file.substr(file.rfind('/') + 1).starts_with("liblog4cplus") ? 1 : 0;
    };
    return ::dl_iterate_phdr(isIt, nullptr) != 0;
}

/// The one that the module is linked with?
bool isLog4cplusLoaded()
{
    void* const log4cplus = isAnyLog4cplusLoaded() ? ::dlopen(ORLIX_LOG4CPLUS_FILE, RTLD_LAZY | RTLD_NOLOAD) : nullptr;
    if (log4cplus != nullptr) {
        ::dlclose(log4cplus);
    }
    return log4cplus != nullptr;
}

} // namespace

LogFunction findLogFunction()
{
    constinit static std::atomic<LogFunction> g_log = nullptr;
    constinit static std::atomic<bool> g_bMissing = false; // the module: it is not looked for again
    LogFunction log = g_log;
    if (log == nullptr && !g_bMissing && isLog4cplusLoaded()) {
        log = loadLogFunction();
        g_log = log;
        g_bMissing = log == nullptr;
    }
    return log;
}

} // namespace orlix
