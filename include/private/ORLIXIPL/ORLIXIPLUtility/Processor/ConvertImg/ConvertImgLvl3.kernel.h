// The conversion kernel, once for all pairs of types and instruction sets; included by the files of ConvertImgLvl3
// only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackLoop.h"
#include "ORLIX/ORLIXMath/Simd/StreamFence.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgCast.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

ORLIX_DECLARE_KERNEL_TABLE(ConvertImgLvl3, plain)
ORLIX_DECLARE_KERNEL_TABLE(ConvertImgLvl3, sse2)
ORLIX_DECLARE_KERNEL_TABLE(ConvertImgLvl3, avx2)
ORLIX_DECLARE_KERNEL_TABLE(ConvertImgLvl3, avx512)

namespace orlix::imaproc::util {

namespace details {

/// Casts `nbElements` elements one by one; the compiler makes of it what it can.
template <class TCast, class TIn, class TOut>
ORLIX_SIMD_INLINE void castElements(const TIn* source, TOut* destination, unsigned long nbElements)
{
    simd::forEachPack<1>(nbElements,
                         [=](unsigned long i) ORLIX_SIMD_LAMBDA { TCast::apply(source + i).store(destination + i); });
}

/// Elements that are cast in one step: of any type they are whole cache lines, whatever the width of a pack.
inline constexpr unsigned long g_nbStep = 64;
inline constexpr unsigned long g_cacheLine = 64;

/// Has the cache lines of a step fetched that lie so many bytes behind `elements`.
template <class T>
ORLIX_SIMD_INLINE void prefetchStep(const T* elements, unsigned long nbBytesAhead)
{
    const unsigned char* const first = reinterpret_cast<const unsigned char*>(elements) + nbBytesAhead;
    for (unsigned long byte = 0; byte < g_nbStep * sizeof(T); byte += g_cacheLine) {
        simd::prefetch(first + byte);
    }
}

/// Casts packs, step by step; the last step may run into the room behind the block.
template <class TCast, class TIn, class TOut>
ORLIX_SIMD_INLINE void castPacks(const TIn* source, TOut* destination, unsigned long nbElements, bool bStreaming)
{
    if (bStreaming && reinterpret_cast<unsigned long>(destination) % g_cacheLine == 0) {
        simd::forEachPackInterleaved<g_nbStep, 1>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
            prefetchStep(source + i, 512);
            for (unsigned long k = i; k < i + g_nbStep; k += TCast::s_nbElements) {
                TCast::apply(source + k).stream(destination + k);
            }
        });
        simd::streamFence();
    } else {
        // What fits the first-level cache gains nothing, and what lies behind it would be fetched for nobody.
        const bool bFetchAhead = nbElements * (sizeof(TIn) + sizeof(TOut)) > 64 * 1024;
        simd::forEachPack<g_nbStep>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
            if (bFetchAhead) {
                prefetchStep(source + i, 1024);
                prefetchStep(destination + i, 1024);
            }
            for (unsigned long k = i; k < i + g_nbStep; k += TCast::s_nbElements) {
                TCast::apply(source + k).store(destination + k);
            }
        });
    }
}

} // namespace details

/// Which cast it is depends on the output's type and is decided before the loop.
template <class TIn, class TOut, eInstructionSet::domain ISA>
ProcessingResult<bool> ConvertImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const Block block = accessKernelBlock();
    const TIn* const source = static_cast<const TIn*>(block.source);
    TOut* const destination = static_cast<TOut*>(block.destination);
    const auto run = [&]<class TCast>() ORLIX_SIMD_LAMBDA {
        if constexpr (ISA == eInstructionSet::eNone) {
            details::castElements<TCast>(source, destination, info.nbElements);
        } else {
            details::castPacks<TCast>(source, destination, info.nbElements, block.bStreaming);
        }
    };
    if constexpr (std::is_same_v<TOut, unsigned char>) {
        if (block.bBinary) {
            run.template operator()<details::CastBinary<TIn, ISA>>();
            return succeed();
        }
    }
    run.template operator()<details::CastGeneric<TIn, TOut, ISA>>();
    return succeed();
}

} // namespace orlix::imaproc::util
