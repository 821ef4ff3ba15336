#include "support/MemoryPlace.h"

#include "ORLIX/ORLIXHardware/CacheInfo.h"

namespace orlix::bench {

eMemoryPlace findMemoryPlace(unsigned long bytes, unsigned long nbThreads)
{
    const unsigned long lastLevel = hard::getLastLevelCacheBytes();
    return bytes <= hard::getL2CacheBytes() * nbThreads ? eMemoryPlace::eInL2
           : bytes <= lastLevel                         ? eMemoryPlace::eInLastLevel
           : bytes <= 2 * lastLevel                     ? eMemoryPlace::eAtTheEdge
                                                        : eMemoryPlace::eBeyond;
}

const char* describe(eMemoryPlace place)
{
    switch (static_cast<eMemoryPlace::domain>(place)) {
    case eMemoryPlace::eInL2: return "in L2";
    case eMemoryPlace::eInLastLevel: return "in the last-level cache";
    case eMemoryPlace::eAtTheEdge: return "at the edge of the last-level cache";
    case eMemoryPlace::eBeyond: return "beyond the last-level cache";
    }
    return "";
}

} // namespace orlix::bench
