// Bare loops that read and write as many bytes as an operator: what the machine can do at most, whatever is built
// above.
#pragma once

#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <cstddef>

namespace orlix::bench {

/// Cache lines that one step of a loop reads and writes, for each image that is read.
struct FlowRatio
{
    unsigned long linesRead;
    unsigned long linesWritten;
    friend bool operator==(const FlowRatio&, const FlowRatio&) = default;
};

/// Takes `nbSteps` steps, a multiple of `g_flowTurn`, between places on 64-byte boundaries that do not overlap. What is
/// written is made of what is read, so that nothing can be left out; as many lines written as read are a copy.
using FlowLoop = void (*)(const std::byte* source, std::byte* destination, std::size_t nbSteps);

constexpr std::size_t g_flowTurn = 16;

struct FlowLoops
{
    eInstructionSet::domain set;
    FlowRatio ratio;
    FlowLoop ordinary;        ///< stores into the caches, step by step
    FlowLoop ordinaryBlocks;  ///< the same, all loads of four steps before their stores
    FlowLoop ordinaryAhead;   ///< the same, step by step, reading 1 KiB ahead
    FlowLoop streaming;       ///< stores past the caches, step by step; null where nothing is written
    FlowLoop streamingGroups; ///< the same on four quarters of the steps at once, reading 512 bytes ahead
};

constexpr std::size_t g_nbFlowRatios = 7;
extern const FlowLoops g_flowLoops_sse2[g_nbFlowRatios];
extern const FlowLoops g_flowLoops_avx2[g_nbFlowRatios];
extern const FlowLoops g_flowLoops_avx512[g_nbFlowRatios];

/// With the widest registers of this processor, for so many bytes read and written an element. Throws
/// std::invalid_argument for a ratio other than 0:1, 1:4, 1:2, 1:1, 2:1, 4:1 and 1:0.
const FlowLoops& selectFlowLoops(unsigned long bytesRead, unsigned long bytesWritten);

} // namespace orlix::bench
