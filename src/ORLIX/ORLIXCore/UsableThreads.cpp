#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include "ORLIX/ORLIXUtil/NumberText.h"

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

/// The next word of `file` as a number; 0 where it is none, as "max" is.
double readNumberFrom(std::istream& file)
{
    std::string word;
    double number = 0;
    file >> word;
    static_cast<void>(readNumber(word, number));
    return number;
}

/// Processors that a control group's quota amounts to, rounded up; 0 where there is no quota.
unsigned long quotaCount()
{
    std::ifstream unified("/sys/fs/cgroup/cpu.max"); // "max 100000" or "200000 100000"
    std::ifstream quotaFile("/sys/fs/cgroup/cpu/cpu.cfs_quota_us");
    std::ifstream periodFile("/sys/fs/cgroup/cpu/cpu.cfs_period_us");
    const double quota = readNumberFrom(unified.is_open() ? unified : quotaFile);
    const double period = readNumberFrom(unified.is_open() ? unified : periodFile);
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
