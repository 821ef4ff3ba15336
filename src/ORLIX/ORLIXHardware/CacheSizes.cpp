// Reads the cache sizes from the kernel and from the C library.
#include "ORLIX/ORLIXHardware/CacheSizes.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>

namespace orlix::hard::details {

namespace {

std::string readWord(const std::string& file)
{
    std::string word;
    std::ifstream(file) >> word;
    return word;
}

unsigned long systemValue(int name)
{
    const long value = sysconf(name);
    return value > 0 ? static_cast<unsigned long>(value) : 0;
}

} // namespace

unsigned long parseCacheSize(const std::string& text)
{
    const std::size_t nbDigits = std::min(text.find_first_not_of("0123456789"), text.size());
    if (nbDigits == 0 || nbDigits > 9) {
        return 0;
    }
    const unsigned long number = std::stoul(text.substr(0, nbDigits));
    const std::string unit = text.substr(nbDigits);
    if (unit.empty()) {
        return number;
    }
    return unit == "K" ? number << 10 : unit == "M" ? number << 20 : 0;
}

CacheSizes readCacheSizesIn(const std::string& directory)
{
    CacheSizes sizes;
    unsigned long lastLevel = 0;
    for (unsigned index = 0;; ++index) {
        const std::string cache = directory + "/index" + std::to_string(index) + "/";
        const std::string type = readWord(cache + "type");
        if (type.empty()) {
            return sizes;
        }
        if (type == "Instruction") {
            continue;
        }
        const unsigned long level = parseCacheSize(readWord(cache + "level"));
        const unsigned long bytes = parseCacheSize(readWord(cache + "size"));
        sizes.line = std::max(sizes.line, parseCacheSize(readWord(cache + "coherency_line_size")));
        if (level == 2) {
            sizes.level2 = bytes;
        }
        if (level >= 2 && level > lastLevel) {
            lastLevel = level;
            sizes.lastLevel = bytes;
        }
    }
}

CacheSizes readSystemCacheSizes()
{
    return {systemValue(_SC_LEVEL1_DCACHE_LINESIZE), systemValue(_SC_LEVEL2_CACHE_SIZE),
            systemValue(_SC_LEVEL3_CACHE_SIZE)};
}

CacheSizes completeCacheSizes(const CacheSizes& first, const CacheSizes& second)
{
    const auto choose = [](unsigned long a, unsigned long b, unsigned long common) { return a ? a : b ? b : common; };
    CacheSizes sizes;
    sizes.line = choose(first.line, second.line, 64);
    sizes.level2 = choose(first.level2, second.level2, 1UL << 20);
    const bool bOnlyLevel2 = first.level2 + second.level2 != 0 && first.lastLevel + second.lastLevel == 0;
    sizes.lastLevel = choose(first.lastLevel, second.lastLevel, bOnlyLevel2 ? sizes.level2 : 8UL << 20);
    sizes.lastLevel = std::max(sizes.lastLevel, sizes.level2);
    return sizes;
}

} // namespace orlix::hard::details
