// The whole of most kernels: one pack of the output from the pack of the input at the same place, under any instruction
// set.
#pragma once

#include "ORLIX/ORLIXMath/Simd/Pack.h"
#include "ORLIX/ORLIXMath/Simd/PackMap.h"

namespace orlix::simd {

/// Stores `map(source + i)`, a pack of `ISA`, to `destination + i` for a whole block. Plain code goes element by
/// element and leaves to the compiler what can be made of it; packs go as `mapPacks` tells, the last one whole, past
/// the count. `place` is the output's. `map` is a lambda marked ORLIX_SIMD_LAMBDA, from an address of elements to the
/// pack that becomes of them.
template <eInstructionSet::domain ISA, class TIn, class TOut, class TMap>
ORLIX_SIMD_INLINE void mapBlock(const TIn* source, TOut* destination, unsigned long nbElements, eMemoryPlace place,
                                const TMap& map)
{
    if constexpr (ISA == eInstructionSet::eNone) {
        forEachPack<1>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA { map(source + i).store(destination + i); });
    } else {
        mapPacks<Pack<ISA, TOut>::s_nbElements>(source, destination, nbElements, place, map);
    }
}

} // namespace orlix::simd
