// Size of the last-level cache, asked once.
#include "ORLIXIPL/ORLIXImage/LastLevelCache.h"

#include <initializer_list>

#include <unistd.h>

namespace orlix::image {

namespace {

unsigned long findLastLevelCacheBytes()
{
    for (const int level : {_SC_LEVEL3_CACHE_SIZE, _SC_LEVEL2_CACHE_SIZE}) {
        if (const long bytes = sysconf(level); bytes > 0) {
            return static_cast<unsigned long>(bytes);
        }
    }
    return 32ul << 20; // emulated processors tell nothing
}

} // namespace

bool isStreamingPaying(unsigned long bytes)
{
    static const unsigned long cacheBytes = findLastLevelCacheBytes();
    return bytes >= cacheBytes / 2;
}

} // namespace orlix::image
