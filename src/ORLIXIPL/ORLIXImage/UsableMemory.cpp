// Physical memory, swap space and control group limits of Linux.
#include "ORLIXIPL/ORLIXImage/UsableMemory.h"

#include <algorithm>
#include <fstream>
#include <initializer_list>
#include <limits>

#include <sys/sysinfo.h>

namespace orlix::image {

namespace {

constexpr unsigned long g_unlimited = std::numeric_limits<unsigned long>::max();

// Of the group that a container shows as its root; "max", or no such file, is no limit.
unsigned long findGroupLimit()
{
    unsigned long limit = g_unlimited;
    for (const char* file : {"/sys/fs/cgroup/memory.max", "/sys/fs/cgroup/memory/memory.limit_in_bytes"}) {
        unsigned long bytes = 0;
        if (std::ifstream(file) >> bytes) {
            limit = std::min(limit, bytes);
        }
    }
    return limit;
}

struct MachineMemory
{
    unsigned long physical = g_unlimited;
    unsigned long all = g_unlimited;
};

MachineMemory findMachineMemory()
{
    struct sysinfo info = {};
    if (sysinfo(&info) != 0) {
        return {};
    }
    return {info.totalram * info.mem_unit, (info.totalram + info.totalswap) * info.mem_unit};
}

} // namespace

unsigned long getUsableMemoryBytes() noexcept
{
    static const unsigned long bytes = std::min(findMachineMemory().physical, findGroupLimit());
    return bytes;
}

unsigned long getAllMemoryBytes() noexcept
{
    static const unsigned long bytes = findMachineMemory().all;
    return bytes;
}

} // namespace orlix::image
