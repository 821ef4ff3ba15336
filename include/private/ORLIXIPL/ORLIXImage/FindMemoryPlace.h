// Which cache may keep a buffer of some size.
#pragma once

#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIX/ORLIXMath/Simd/MemoryPlace.h"

namespace orlix::image {

/// Half of each cache is for the input. Stores past the caches pay from there on, and cost below.
inline simd::eMemoryPlace findMemoryPlace(unsigned long bytes)
{
    if (bytes >= hard::getLastLevelCacheBytes() / 2) {
        return simd::eMemoryPlace::memory;
    }
    return bytes > hard::getL2CacheBytes() / 2 ? simd::eMemoryPlace::lastLevelCache
                                               : simd::eMemoryPlace::secondLevelCache;
}

} // namespace orlix::image
