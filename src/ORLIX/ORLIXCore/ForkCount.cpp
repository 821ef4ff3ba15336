#include "ORLIX/ORLIXCore/ForkCount.h"

#include "ORLIX/ORLIXCore/PostedRuns.h"

#include <pthread.h>
#include <sys/single_threaded.h>

namespace orlix::core {

namespace details {

constinit std::atomic<unsigned> g_nbForks{0};

} // namespace details

namespace {

bool g_bOneThread = true; ///< of the parent at its last fork

void beforeFork()
{
    g_bOneThread = __libc_single_threaded != 0;
    PostedRuns::getInstance().holdForFork();
}

void inParent()
{
    PostedRuns::getInstance().releaseAfterFork();
}

void inChild()
{
    if (!g_bOneThread) {
        details::g_nbForks.fetch_add(1, std::memory_order_relaxed);
        PostedRuns::getInstance().forgetThoseUnderWay();
    }
    PostedRuns::getInstance().releaseAfterFork();
}

const bool g_bRegistered = pthread_atfork(beforeFork, inParent, inChild) == 0;

} // namespace

} // namespace orlix::core
