// The loops of kernels: one step a pack, in order or in groups side by side.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"

namespace orlix::simd {

/// Calls `step(i)` for i = 0, nbStep, 2 nbStep … below `nbElements`, `nbUnrolled` steps a turn: on small images the
/// loop itself counts. `step` is a lambda marked ORLIX_SIMD_LAMBDA.
template <unsigned long nbStep, unsigned long nbUnrolled = 1, class TStep>
ORLIX_SIMD_INLINE void forEachPack(unsigned long nbElements, const TStep& step)
{
    constexpr unsigned long turn = nbStep * nbUnrolled;
    unsigned long i = 0;
    if constexpr (nbUnrolled > 1) {
        for (; i + turn <= nbElements; i += turn) {
#pragma GCC unroll 8
            for (unsigned long k = 0; k < turn; k += nbStep) {
                step(i + k);
            }
        }
    }
    for (; i < nbElements; i += nbStep) {
        step(i);
    }
}

/// The same steps, the elements in four groups that go on side by side, `nbRun` steps of each in turn. Memory beyond
/// the caches serves several streams of a thread faster than one; runs should fill whole cache lines of the output.
template <unsigned long nbStep, unsigned long nbRun, class TStep>
ORLIX_SIMD_INLINE void forEachPackInterleaved(unsigned long nbElements, const TStep& step)
{
    constexpr unsigned long nbGroups = 4;
    constexpr unsigned long run = nbStep * nbRun;
    const unsigned long nbGroup = nbElements / (nbGroups * run) * run;
    for (unsigned long i = 0; i < nbGroup; i += run) {
#pragma GCC unroll 4
        for (unsigned long group = 0; group < nbGroups; ++group) {
#pragma GCC unroll 8
            for (unsigned long k = 0; k < run; k += nbStep) {
                step(group * nbGroup + i + k);
            }
        }
    }
    for (unsigned long i = nbGroups * nbGroup; i < nbElements; i += nbStep) {
        step(i);
    }
}

} // namespace orlix::simd
