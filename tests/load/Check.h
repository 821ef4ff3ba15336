// Says what is wrong, and remembers it for the exit status.
#pragma once

#include <cstdio>
#include <fstream>
#include <string>

namespace orlix::test {

inline int g_nbFailures = 0;

inline void check(bool bTrue, const std::string& what)
{
    if (!bTrue) {
        std::fprintf(stderr, "wrong: %s\n", what.c_str());
        ++g_nbFailures;
    }
}

/// Is a file whose path contains `part` mapped into this process?
inline bool isMapped(const std::string& part)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(part) != std::string::npos) {
            return true;
        }
    }
    return false;
}

} // namespace orlix::test
