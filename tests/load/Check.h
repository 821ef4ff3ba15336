// Says what is wrong, and remembers it for the exit status; what of a file is in memory.
#pragma once

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <sys/mman.h>

namespace orlix::test {

inline int g_nbFailures = 0;

inline void check(bool bTrue, const std::string& what)
{
    if (!bTrue) {
        std::fprintf(stderr, "wrong: %s\n", what.c_str());
        ++g_nbFailures;
    }
}

struct AddressRange
{
    std::uintptr_t first;
    std::uintptr_t end;
};

/// Where files whose paths contain `part` are mapped into this process.
inline std::vector<AddressRange> findMapped(const std::string& part)
{
    std::vector<AddressRange> ranges;
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(part) != std::string::npos) {
            std::istringstream fields(line);
            AddressRange range{};
            char dash = 0;
            fields >> std::hex >> range.first >> dash >> range.end;
            ranges.push_back(range);
        }
    }
    return ranges;
}

inline bool isMapped(const std::string& part)
{
    return !findMapped(part).empty();
}

/// Takes the place of what was unloaded, for good: what still points there meets no memory, and what is loaded next
/// lies elsewhere.
inline void block(const std::vector<AddressRange>& ranges)
{
    for (const AddressRange& range : ranges) {
        ::mmap(reinterpret_cast<void*>(range.first), range.end - range.first, PROT_NONE,
               MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0); // fails where something else lies already
    }
}

} // namespace orlix::test
