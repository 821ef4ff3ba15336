#include "ORLIX/ORLIXCore/ProcessEnd.h"

#include "ORLIX/ORLIXCore/Immortal.h"
#include "ORLIX/ORLIXCore/KeptLibrary.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXCore/PostedRuns.h"

#include <cstdlib>

#include <dlfcn.h>
#include <unistd.h>

namespace orlix::core {

namespace {

bool isMainThread()
{
    return gettid() == getpid();
}

/// What belongs to the main thread ends before every static object, whenever that was made: so runs can still use them
/// all. An exit handler alone would come too late for static objects that the runs themselves have made.
struct MainThreadEnd
{
    MainThreadEnd() = default;
    ~MainThreadEnd()
    {
        if (isMainThread()) {
            PostedRuns::getInstance().endAll(false);
        }
    }
    MainThreadEnd(const MainThreadEnd&) = delete;
    MainThreadEnd& operator=(const MainThreadEnd&) = delete;

    bool bKnown = false;
};

void watchMainThread()
{
    static thread_local bool t_bWatched = false;
    if (!t_bWatched) {
        t_bWatched = true;
        if (isMainThread()) {
            static thread_local MainThreadEnd t_end;
            t_end.bKnown = true;
        }
    }
}

const NumberedText& accessText()
{
    static Immortal<NumberedText> g_text(formatMessage<eORLIXCoreMessage>(eORLIXCoreMessage::eProcessEnds));
    return g_text.access();
}

/// For an exit that another thread calls, and for runs that static objects start while they end.
void endAllForGood()
{
    PostedRuns::getInstance().endAll(true);
}

/// Is this library one of those that the program was started with? Asked while it is being loaded: those that the
/// program loads later don't belong to its own scope by then. The default scope would do for none of this, since it
/// has in it what was loaded together with whoever asks.
bool isThereFromStart()
{
    void* const program = dlopen(nullptr, RTLD_LAZY);
    if (program == nullptr) {
        return false;
    }
    const bool bThere = dlsym(program, "_ZN5orlix4core14accessExecutorEv") != nullptr;
    dlclose(program);
    return bThere;
}

/// A library that the program was started with is watched for from the start, whichever thread will run something. One
/// that is loaded later would be kept for ever by that, so it waits until an asynchronous run starts.
const bool g_bWatchedFromStart = [] {
    const bool bFromStart = isThereFromStart();
    if (bFromStart) {
        watchMainThread();
    }
    return bFromStart;
}();

} // namespace

void endRunsWithProcess()
{
    watchMainThread();
    static const bool g_bRegistered = [] {
        keepOwnLibraryForGood();
        accessText(); // while its catalogue is there
        return std::atexit(endAllForGood) == 0;
    }();
    static_cast<void>(g_bRegistered);
}

ProcessingResult<bool> processEnds() noexcept
{
    try {
        return ProcessingResult<bool>::failure(accessText());
    } catch (...) {
        return ProcessingResult<bool>::outOfMemory();
    }
}

} // namespace orlix::core
