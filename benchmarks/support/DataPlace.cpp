#include "support/DataPlace.h"

#include "ORLIX/ORLIXHardware/CacheInfo.h"

namespace orlix::bench {

eDataPlace findDataPlace(unsigned long bytes, unsigned long nbThreads)
{
    const unsigned long lastLevel = hard::getLastLevelCacheBytes();
    return bytes <= hard::getL2CacheBytes() * nbThreads ? eDataPlace::eInL2
           : bytes <= lastLevel                         ? eDataPlace::eInLastLevel
           : bytes <= 2 * lastLevel                     ? eDataPlace::eAtTheEdge
                                                        : eDataPlace::eBeyond;
}

const char* describe(eDataPlace place)
{
    switch (static_cast<eDataPlace::domain>(place)) {
    case eDataPlace::eInL2: return "in L2";
    case eDataPlace::eInLastLevel: return "in the last-level cache";
    case eDataPlace::eAtTheEdge: return "at the edge of the last-level cache";
    case eDataPlace::eBeyond: return "beyond the last-level cache";
    }
    return "";
}

} // namespace orlix::bench
