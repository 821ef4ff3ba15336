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

/// Casts packs in steps of 64 elements, the last of which may run into the room behind the block. 64 elements of any
/// type are whole cache lines, whatever the width of a pack.
template <class TCast, class TIn, class TOut>
ORLIX_SIMD_INLINE void castPacks(const TIn* source, TOut* destination, unsigned long nbElements, bool bStreaming)
{
    constexpr unsigned long nbStep = 64;
    constexpr unsigned long line = 64;
    constexpr unsigned long nbPack = TCast::s_nbElements;
    const auto prefetch = [=](unsigned long i, unsigned long ahead) ORLIX_SIMD_LAMBDA {
        for (unsigned long byte = 0; byte < nbStep * sizeof(TIn); byte += line) {
            simd::prefetch(reinterpret_cast<const unsigned char*>(source + i) + ahead + byte);
        }
    };
    if (bStreaming && reinterpret_cast<unsigned long>(destination) % line == 0) {
        simd::forEachPackInterleaved<nbStep, 1>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
            prefetch(i, 512);
            for (unsigned long k = i; k < i + nbStep; k += nbPack) {
                TCast::apply(source + k).stream(destination + k);
            }
        });
        simd::streamFence();
    } else {
        simd::forEachPack<nbStep>(nbElements, [=](unsigned long i) ORLIX_SIMD_LAMBDA {
            prefetch(i, 1024);
            for (unsigned long k = i; k < i + nbStep; k += nbPack) {
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
