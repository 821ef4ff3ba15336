// The loops over a kind of register; included by the files FlowLoops_<set> only.
#pragma once

#include "support/FlowLoops.h"

#include <immintrin.h>

namespace orlix::bench {
namespace {

constexpr std::size_t g_lineBytes = 64;

/// One step's bytes: as many registers as the larger side of the ratio has.
template <class TRegister, FlowRatio ratio>
struct Step
{
    using Type = typename TRegister::Type;
    static constexpr std::size_t width = sizeof(Type);
    static constexpr std::size_t perLine = g_lineBytes / width;
    static constexpr std::size_t nbRead = ratio.linesRead * perLine;
    static constexpr std::size_t nbWritten = ratio.linesWritten * perLine;
    Type values[nbRead > 0 ? nbRead : 1];

    static inline __attribute__((always_inline)) Step load(const std::byte* source)
    {
        Step step;
        if constexpr (nbRead == 0) {
            step.values[0] = TRegister::filling(); // not 0: some processors store lines of zeros three times as fast
        }
#pragma GCC unroll 16
        for (std::size_t i = 0; i < nbRead; ++i) {
            step.values[i] = TRegister::load(source + i * width);
        }
        return step;
    }

    template <bool bStreaming>
    inline __attribute__((always_inline)) void store(std::byte* destination) const
    {
        if constexpr (nbWritten == 0) {
#pragma GCC unroll 16
            for (std::size_t i = 0; i < nbRead; ++i) {
                asm volatile("" : : "x"(values[i]));
            }
        }
#pragma GCC unroll 16
        for (std::size_t i = 0; i < nbWritten; ++i) {
            Type value = values[nbRead > nbWritten ? i : i * nbRead / nbWritten];
            for (std::size_t more = i + nbWritten; more < nbRead; more += nbWritten) {
                value = TRegister::join(value, values[more]);
            }
            if constexpr (bStreaming) {
                TRegister::stream(destination + i * width, value);
            } else {
                TRegister::store(destination + i * width, value);
            }
        }
    }
};

/// Step after step; the lines `ahead` bytes further on are fetched meanwhile, none where 0.
template <class TRegister, FlowRatio ratio, bool bStreaming, std::size_t ahead>
inline __attribute__((always_inline)) void takeSteps(const std::byte* source, std::byte* destination,
                                                     std::size_t nbSteps)
{
    for (std::size_t step = 0; step < nbSteps; ++step) {
        const std::byte* const from = source + step * ratio.linesRead * g_lineBytes;
        if constexpr (ahead > 0) {
            for (std::size_t line = 0; line < ratio.linesRead; ++line) {
                _mm_prefetch(reinterpret_cast<const char*>(from + line * g_lineBytes + ahead), _MM_HINT_T0);
            }
        }
        Step<TRegister, ratio>::load(from).template store<bStreaming>(destination +
                                                                      step * ratio.linesWritten * g_lineBytes);
    }
}

template <class TRegister, FlowRatio ratio, std::size_t ahead>
void flowOrdinary(const std::byte* source, std::byte* destination, std::size_t nbSteps)
{
    takeSteps<TRegister, ratio, false, ahead>(source, destination, nbSteps);
}

/// Loads of four steps before their stores: faster in L1 and L2, slower on some processors where memory is the limit.
template <class TRegister, FlowRatio ratio>
void flowOrdinaryBlocks(const std::byte* source, std::byte* destination, std::size_t nbSteps)
{
    constexpr std::size_t nbBlock = 4;
    for (std::size_t block = 0; block < nbSteps; block += nbBlock) {
        Step<TRegister, ratio> steps[nbBlock];
#pragma GCC unroll 4
        for (std::size_t i = 0; i < nbBlock; ++i) {
            steps[i] = Step<TRegister, ratio>::load(source + (block + i) * ratio.linesRead * g_lineBytes);
        }
#pragma GCC unroll 4
        for (std::size_t i = 0; i < nbBlock; ++i) {
            steps[i].template store<false>(destination + (block + i) * ratio.linesWritten * g_lineBytes);
        }
    }
}

template <class TRegister, FlowRatio ratio>
void flowStreaming(const std::byte* source, std::byte* destination, std::size_t nbSteps)
{
    takeSteps<TRegister, ratio, true, 0>(source, destination, nbSteps);
    _mm_sfence();
}

template <class TRegister, FlowRatio ratio>
void flowStreamingGroups(const std::byte* source, std::byte* destination, std::size_t nbSteps)
{
    constexpr std::size_t nbGroups = 4;
    constexpr std::size_t nbTurn = g_flowTurn / nbGroups;
    const std::size_t nbGroup = nbSteps / nbGroups;
    for (std::size_t i = 0; i < nbGroup; i += nbTurn) {
        for (std::size_t first = i; first < nbSteps; first += nbGroup) {
            takeSteps<TRegister, ratio, true, 512>(source + first * ratio.linesRead * g_lineBytes,
                                                   destination + first * ratio.linesWritten * g_lineBytes, nbTurn);
        }
    }
    _mm_sfence();
}

template <class TRegister, FlowRatio ratio>
constexpr FlowLoops makeFlowLoops(eInstructionSet::domain set)
{
    FlowLoops loops{set,
                    ratio,
                    &flowOrdinary<TRegister, ratio, 0>,
                    &flowOrdinaryBlocks<TRegister, ratio>,
                    &flowOrdinary<TRegister, ratio, 1024>,
                    nullptr,
                    nullptr};
    if constexpr (ratio.linesWritten > 0) {
        loops.streaming = &flowStreaming<TRegister, ratio>;
        loops.streamingGroups = &flowStreamingGroups<TRegister, ratio>;
    }
    return loops;
}

} // namespace
} // namespace orlix::bench

/// The one table of a file: the loops of each ratio over `TRegister`.
#define ORLIX_FLOW_LOOPS(suffix, TRegister, ISA)                                                                       \
    namespace orlix::bench {                                                                                           \
    constexpr FlowLoops g_flowLoops_##suffix[g_nbFlowRatios] = {                                                       \
        makeFlowLoops<TRegister, FlowRatio{0, 1}>(ISA), makeFlowLoops<TRegister, FlowRatio{1, 4}>(ISA),                \
        makeFlowLoops<TRegister, FlowRatio{1, 2}>(ISA), makeFlowLoops<TRegister, FlowRatio{1, 1}>(ISA),                \
        makeFlowLoops<TRegister, FlowRatio{2, 1}>(ISA), makeFlowLoops<TRegister, FlowRatio{4, 1}>(ISA),                \
        makeFlowLoops<TRegister, FlowRatio{1, 0}>(ISA)};                                                               \
    }
