// Physical memory, swap space and control group limits of Linux.
#include "ORLIXIPL/ORLIXImage/UsableMemory.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include <fcntl.h>
#include <sys/sysinfo.h>
#include <unistd.h>

namespace orlix::image {

namespace {

constexpr unsigned long g_unlimited = std::numeric_limits<unsigned long>::max();

// The number at the start of a file; `g_unlimited` where there is none. Takes no memory, which may be what is short.
unsigned long readNumber(const char* path)
{
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return g_unlimited;
    }
    char text[32];
    const long length = read(file, text, sizeof text);
    close(file);
    unsigned long number = 0;
    return length > 0 && std::from_chars(text, text + length, number).ec == std::errc() ? number : g_unlimited;
}

// Of the group that a container shows as its root, in either version of the interface; "max" is no limit.
unsigned long findGroupLimit()
{
    return std::min(readNumber("/sys/fs/cgroup/memory.max"), readNumber("/sys/fs/cgroup/memory/memory.limit_in_bytes"));
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
