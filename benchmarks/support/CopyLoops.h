// Bare copy loops: what the machine can do at most, whatever is built above it.
#pragma once

#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <cstddef>

namespace orlix::bench {

/// Copies `bytes`, a multiple of `g_copyLoopStep`, between two places on 64-byte boundaries that do not overlap.
using CopyLoop = void (*)(const std::byte* source, std::byte* destination, std::size_t bytes);

constexpr std::size_t g_copyLoopStep = 4096;

struct CopyLoops
{
    eInstructionSet::domain set;
    CopyLoop ordinary;        ///< stores into the caches, line by line
    CopyLoop ordinaryBlocks;  ///< the same, four lines at a time
    CopyLoop ordinaryAhead;   ///< the same, line by line, reading 1 KiB ahead
    CopyLoop streaming;       ///< stores past the caches, line by line
    CopyLoop streamingGroups; ///< the same on four quarters of the bytes at once, reading 512 bytes ahead
};

extern const CopyLoops g_copyLoops_sse2;
extern const CopyLoops g_copyLoops_avx2;
extern const CopyLoops g_copyLoops_avx512;

/// With the widest registers of this processor.
const CopyLoops& selectCopyLoops();

} // namespace orlix::bench
