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
/// So many elements pay for having the output's first and last ones written apart, so that the rest lies in whole
/// lines.
inline constexpr unsigned long g_nbWorthAligning = 1024;

/// Has the cache lines of a step fetched that lie so many bytes behind `elements`.
template <class T>
ORLIX_SIMD_INLINE void prefetchStep(const T* elements, unsigned long nbBytesAhead)
{
    const unsigned char* const first = reinterpret_cast<const unsigned char*>(elements) + nbBytesAhead;
    for (unsigned long byte = 0; byte < g_mapStep * sizeof(T); byte += g_cacheLine) {
        prefetch(first + byte);
    }
}

/// Past the caches, step by step, in four groups side by side or in one; `destination` begins with a cache line and
/// `nbElements` are whole steps.
template <unsigned long nbPack, bool bInGroups, class TIn, class TOut, class TMap>
ORLIX_SIMD_INLINE void mapStreaming(const TIn* source, TOut* destination, unsigned long nbElements, const TMap& map)
{
    const auto step = [=](unsigned long i) ORLIX_SIMD_LAMBDA {
        prefetchStep(source + i, bInGroups ? 512 : 2048);
        for (unsigned long k = i; k < i + g_mapStep; k += nbPack) {
            map(source + k).stream(destination + k);
        }
    };
    if constexpr (bInGroups) {
        forEachPackInterleaved<g_mapStep, sizeof(TOut) == 1 ? 2 : 1>(nbElements, step);
    } else {
        forEachPack<g_mapStep>(nbElements, step);
    }
    streamFence();
}

/// Into the caches, fetching ahead; whole steps.
template <unsigned long nbPack, class TIn, class TOut, class TMap>
ORLIX_SIMD_INLINE void mapAhead(const TIn* source, TOut* destination, unsigned long nbElements, const TMap& map)
{
    forEachPack<g_mapStep>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
        prefetchStep(source + i, 1024);
        prefetchStep(destination + i, 1024);
        for (unsigned long k = i; k < i + g_mapStep; k += nbPack) {
            map(source + k).store(destination + k);
        }
    });
}

/// Into the caches; whole packs. Four registers are filled before they are stored: processors hold a load back that
/// looks like a store just before it, as it does where both addresses agree in their low 12 bits.
template <unsigned long nbPack, class TIn, class TOut, class TMap>
ORLIX_SIMD_INLINE void mapPlainly(const TIn* source, TOut* destination, unsigned long nbElements, const TMap& map)
{
    constexpr unsigned long nbPacks = 4 / sizeof(TOut);
    using Result = decltype(map(source));
    unsigned long i = 0;
    for (; i + nbPacks * nbPack <= nbElements; i += nbPacks * nbPack) {
        Result results[nbPacks];
#pragma GCC unroll 4
        for (unsigned long k = 0; k < nbPacks; ++k) {
            results[k] = map(source + i + k * nbPack);
        }
#pragma GCC unroll 4
        for (unsigned long k = 0; k < nbPacks; ++k) {
            results[k].store(destination + i + k * nbPack);
        }
    }
    for (; i < nbElements; i += nbPack) {
        map(source + i).store(destination + i);
    }
}

/// As `place` asks for; whole steps, and for streaming stores `destination` begins with a cache line.
template <unsigned long nbPack, class TIn, class TOut, class TMap>
ORLIX_SIMD_INLINE void mapSteps(const TIn* source, TOut* destination, unsigned long nbElements, eMemoryPlace place,
                                const TMap& map)
{
    const bool bStreaming = levelOf(place) >= eMemoryPlace::lastLevelCacheFilled;
    if (bStreaming && isAssisted(place)) {
        mapStreaming<nbPack, true>(source, destination, nbElements, map);
    } else if (bStreaming) {
        mapStreaming<nbPack, false>(source, destination, nbElements, map);
    } else if (isAssisted(place)) {
        mapAhead<nbPack>(source, destination, nbElements, map);
    } else {
        mapPlainly<nbPack>(source, destination, nbElements, map);
    }
}

} // namespace details

/// Stores `map(source + i)`, a pack of `nbPack` elements, to `destination + i` for i = 0, nbPack, 2 nbPack … below
/// `nbElements`; the last pack may be taken whole, past the count, but not past the next multiple of 64 elements.
/// `place` is the output's. Both may be the same elements. `map` is a lambda marked ORLIX_SIMD_LAMBDA whose elements
/// depend on those at their own place alone; `nbPack` divides 64.
template <unsigned long nbPack, class TIn, class TOut, class TMap>
ORLIX_SIMD_INLINE void mapPacks(const TIn* source, TOut* destination, unsigned long nbElements, eMemoryPlace place,
                                const TMap& map)
{
    using details::g_cacheLine;
    using details::g_mapStep;
    const unsigned long nbIntoLine = reinterpret_cast<unsigned long>(destination) % g_cacheLine / sizeof(TOut);
    if (nbIntoLine == 0 || nbElements < details::g_nbWorthAligning) {
        // Few elements beside a cache line have no use for the caches' outside, nor may they be streamed.
        const eMemoryPlace reached = nbIntoLine == 0 ? place : eMemoryPlace::secondLevelCache;
        const unsigned long nbWhole = nbElements - nbElements % g_mapStep;
        details::mapSteps<nbPack>(source, destination, nbWhole, reached, map);
        details::mapPlainly<nbPack>(source + nbWhole, destination + nbWhole, nbElements - nbWhole, map);
        return;
    }
    // Of the first and the last step only the elements beside the whole lines are written. The others may be the
    // input's too, and would be mapped twice.
    TOut edges[2][g_mapStep];
    for (unsigned long edge = 0; edge < 2; ++edge) {
        const TIn* const from = edge == 0 ? source : source + nbElements - g_mapStep;
        for (unsigned long k = 0; k < g_mapStep; k += nbPack) {
            map(from + k).store(edges[edge] + k);
        }
    }
    const unsigned long nbBefore = g_cacheLine / sizeof(TOut) - nbIntoLine;
    const unsigned long nbWhole = (nbElements - nbBefore) / g_mapStep * g_mapStep;
    const unsigned long nbBehind = nbElements - nbBefore - nbWhole;
    details::mapSteps<nbPack>(source + nbBefore, destination + nbBefore, nbWhole, place, map);
    __builtin_memcpy(destination, edges[0], nbBefore * sizeof(TOut));
    __builtin_memcpy(destination + nbElements - nbBehind, edges[1] + g_mapStep - nbBehind, nbBehind * sizeof(TOut));
}

} // namespace orlix::simd
