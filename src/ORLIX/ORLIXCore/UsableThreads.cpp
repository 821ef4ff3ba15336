#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include "ORLIX/ORLIXCore/ProcessorQuota.h"

#include <sched.h>

#include <algorithm>
#include <thread>

namespace orlix::core {

namespace {

unsigned long affinityCount()
{
    cpu_set_t set;
    CPU_ZERO(&set);
    if (sched_getaffinity(0, sizeof(set), &set) == 0) {
        return static_cast<unsigned long>(std::max(1, CPU_COUNT(&set)));
    }
    return std::max(1U, std::thread::hardware_concurrency());
}

} // namespace

unsigned long getNbUsableThreads()
{
    static const unsigned long g_count = [] {
        const unsigned long quota = countQuotaProcessors("");
        return quota == 0 ? affinityCount() : std::min(affinityCount(), quota);
    }();
    return g_count;
}

} // namespace orlix::core
