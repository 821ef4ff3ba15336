// Which cache may keep a buffer of some size, and what its processor makes of that.
#pragma once

#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIX/ORLIXHardware/ProcessorInfo.h"
#include "ORLIX/ORLIXMath/Simd/MemoryPlace.h"

namespace orlix::image {

/// What of a processor decides how memory is written best. This is the one place where that is decided; see
/// docs/performance.md for what was measured on each kind.
struct MemoryTraits
{
    unsigned long level2Bytes = 0;
    unsigned long lastLevelBytes = 0;
    bool bAssisted =
        false; ///< as `simd::isAssisted` beyond the second level; what gains there costs 10 to 20 % elsewhere
};

inline MemoryTraits makeMemoryTraits(unsigned long level2Bytes, unsigned long lastLevelBytes, const std::string& vendor)
{
    return {level2Bytes, lastLevelBytes, vendor == "GenuineIntel"};
}

/// Half of a cache is for the input. Stores past the caches pay where the output and an input of its size don't fit the
/// last level together; where nothing is read, only from there on where the output alone doesn't.
constexpr simd::eMemoryPlace findMemoryPlace(unsigned long bytes, const MemoryTraits& traits)
{
    using simd::eMemoryPlace;
    if (bytes >= traits.lastLevelBytes) {
        return traits.bAssisted ? eMemoryPlace::assistedMemory : eMemoryPlace::memory;
    }
    if (bytes >= traits.lastLevelBytes / 2) {
        return traits.bAssisted ? eMemoryPlace::assistedLastLevelCacheFilled : eMemoryPlace::lastLevelCacheFilled;
    }
    if (bytes > traits.level2Bytes / 2) {
        return traits.bAssisted ? eMemoryPlace::assistedLastLevelCache : eMemoryPlace::lastLevelCache;
    }
    return eMemoryPlace::secondLevelCache;
}

/// On the processor of this computer.
inline simd::eMemoryPlace findMemoryPlace(unsigned long bytes)
{
    static const MemoryTraits traits = makeMemoryTraits(hard::getL2CacheBytes(), hard::getLastLevelCacheBytes(),
                                                        hard::getProcessorInfo().getVendorName());
    return findMemoryPlace(bytes, traits);
}

} // namespace orlix::image
