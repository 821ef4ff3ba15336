// The loop of kernels that fill memory from a random generator.
#pragma once

#include "ORLIX/ORLIXMath/Simd/MemoryPlace.h"
#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"

namespace orlix::simd {

/// Elements that the next `nbSkipped` packs' worth would begin with are drawn and dropped; the `nbElements` that follow
/// go to `destination`, pack by pack. The last pack is written whole, past the count. `place` is the output's.
/// `generator` is local to the kernel, so that it can be held in registers.
template <class TGenerator, class T>
ORLIX_SIMD_INLINE void fillRandom(TGenerator& generator, T* destination, unsigned long nbElements,
                                  unsigned long nbSkipped, eMemoryPlace place)
{
    using Pack = decltype(generator.draw());
    constexpr unsigned long nbPack = Pack::s_nbElements;
    for (; nbSkipped >= nbPack; nbSkipped -= nbPack) {
        static_cast<void>(generator.draw());
    }
    if (nbSkipped > 0) { // of the first pack its end alone
        T edge[nbPack];
        generator.draw().store(edge);
        const unsigned long nbRest = nbPack - nbSkipped;
        const unsigned long nbTaken = nbElements < nbRest ? nbElements : nbRest;
        __builtin_memcpy(destination, edge + nbSkipped, nbTaken * sizeof(T));
        destination += nbTaken;
        nbElements -= nbTaken;
    }
    if (levelOf(place) == eMemoryPlace::memory && reinterpret_cast<unsigned long>(destination) % 64 == 0) {
        forEachPack<nbPack>(nbElements,
                            [&](unsigned long i) ORLIX_SIMD_LAMBDA { generator.draw().stream(destination + i); });
        streamFence();
    } else {
        forEachPack<nbPack>(nbElements,
                            [&](unsigned long i) ORLIX_SIMD_LAMBDA { generator.draw().store(destination + i); });
    }
}

} // namespace orlix::simd
