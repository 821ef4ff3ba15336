// The loop of kernels whose output element depends on the input element at the same place alone.
#pragma once

#include "ORLIX/ORLIXMath/Simd/MemoryPlace.h"
#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/Register.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"

namespace orlix::simd {

namespace details {

inline constexpr unsigned long g_cacheLine = 64;
/// Elements of a step: of any type they are whole cache lines, whatever the width of a pack.
inline constexpr unsigned long g_mapStep = 64;

/// Has the cache lines of a step fetched that lie so many bytes behind `elements`.
template <class T>
ORLIX_SIMD_INLINE void prefetchStep(const T* elements, unsigned long nbBytesAhead)
{
    const unsigned char* const first = reinterpret_cast<const unsigned char*>(elements) + nbBytesAhead;
    for (unsigned long byte = 0; byte < g_mapStep * sizeof(T); byte += g_cacheLine) {
        prefetch(first + byte);
    }
}

} // namespace details

/// Stores `map(source + i)`, a pack of `nbPack` elements, to `destination + i` for i = 0, nbPack, 2 nbPack … below
/// `nbElements`; the last pack is taken whole, past the count. `place` is the output's; stores go past the caches only
/// where the destination begins with a cache line. `map` is a lambda marked ORLIX_SIMD_LAMBDA; `nbPack` divides 64.
template <unsigned long nbPack, class TIn, class TOut, class TMap>
ORLIX_SIMD_INLINE void mapPacks(const TIn* source, TOut* destination, unsigned long nbElements, eMemoryPlace place,
                                const TMap& map)
{
    using details::g_mapStep;
    const unsigned long nbWhole = nbElements - nbElements % g_mapStep;
    if (place == eMemoryPlace::memory && reinterpret_cast<unsigned long>(destination) % details::g_cacheLine == 0) {
        forEachPackInterleaved<g_mapStep, sizeof(TOut) == 1 ? 2 : 1>(nbWhole, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
            details::prefetchStep(source + i, 512);
            for (unsigned long k = i; k < i + g_mapStep; k += nbPack) {
                map(source + k).stream(destination + k);
            }
        });
        streamFence();
    } else {
        const bool bFetchAhead = place != eMemoryPlace::secondLevelCache;
        forEachPack<g_mapStep>(nbWhole, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
            if (bFetchAhead) {
                details::prefetchStep(source + i, 1024);
                details::prefetchStep(destination + i, 1024);
            }
            for (unsigned long k = i; k < i + g_mapStep; k += nbPack) {
                map(source + k).store(destination + k);
            }
        });
    }
    for (unsigned long i = nbWhole; i < nbElements; i += nbPack) {
        map(source + i).store(destination + i);
    }
}

} // namespace orlix::simd
