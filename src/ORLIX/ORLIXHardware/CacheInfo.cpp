// The cache sizes, read once.
#include "ORLIX/ORLIXHardware/CacheInfo.h"

#include "ORLIX/ORLIXHardware/CacheSizes.h"

namespace orlix::hard {

namespace {

const details::CacheSizes& cacheSizes()
{
    static const details::CacheSizes sizes = details::completeCacheSizes(
        details::readCacheSizesIn("/sys/devices/system/cpu/cpu0/cache"), details::readSystemCacheSizes());
    return sizes;
}

} // namespace

unsigned long getLastLevelCacheBytes()
{
    return cacheSizes().lastLevel;
}

unsigned long getL2CacheBytes()
{
    return cacheSizes().level2;
}

unsigned long getCacheLineBytes()
{
    return cacheSizes().line;
}

} // namespace orlix::hard
