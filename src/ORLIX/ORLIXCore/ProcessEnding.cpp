#include "ORLIX/ORLIXCore/ProcessEnding.h"

#include <atomic>

namespace orlix::core {

namespace {

constinit std::atomic<bool> g_bEnding = false;

/// Made while the program runs, so it goes before the loader ends the libraries when the process ends; where this
/// library is unloaded, the loader comes first.
struct ProcessEnd
{
    ~ProcessEnd() { g_bEnding = true; }
};

} // namespace

void watchProcessEnd()
{
    static const ProcessEnd g_processEnd;
}

bool isProcessEnding()
{
    return g_bEnding;
}

} // namespace orlix::core
