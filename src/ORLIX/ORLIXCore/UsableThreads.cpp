#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <sched.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>
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

/// Processors that a control group's quota amounts to, rounded up; 0 where there is no quota.
unsigned long quotaCount()
{
    double quota = 0;
    double period = 0;
    std::string word;
    std::ifstream unified("/sys/fs/cgroup/cpu.max"); // "max 100000" or "200000 100000"
    if (unified >> word >> period && word != "max") {
        quota = std::strtod(word.c_str(), nullptr);
    } else if (!unified.is_open()) {
        std::ifstream("/sys/fs/cgroup/cpu/cpu.cfs_quota_us") >> quota;
        std::ifstream("/sys/fs/cgroup/cpu/cpu.cfs_period_us") >> period;
    }
    return quota > 0 && period > 0 ? static_cast<unsigned long>(std::ceil(quota / period)) : 0;
}

} // namespace

unsigned long getNbUsableThreads()
{
    static const unsigned long g_count = [] {
        const unsigned long quota = quotaCount();
        return quota == 0 ? affinityCount() : std::min(affinityCount(), quota);
    }();
    return g_count;
}

} // namespace orlix::core
