// The conversion kernel, once for all pairs of types and instruction sets; included by the files of ConvertImgLvl3
// only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackMap.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgCast.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

ORLIX_DECLARE_KERNEL_TABLE(ConvertImgLvl3, plain)
ORLIX_DECLARE_KERNEL_TABLE(ConvertImgLvl3, sse2)
ORLIX_DECLARE_KERNEL_TABLE(ConvertImgLvl3, avx2)
ORLIX_DECLARE_KERNEL_TABLE(ConvertImgLvl3, avx512)

namespace orlix::imaproc::util {

namespace details {

/// Casts `nbElements` elements one by one, in plain code, where the compiler makes of it what it can, else in packs, of
/// which the last one may run into the room behind the block. `cast` gives the pack that becomes of the one at its
/// argument.
template <eInstructionSet::domain ISA, class TIn, class TOut, class TCast>
ORLIX_SIMD_INLINE void castElements(const TIn* source, TOut* destination, unsigned long nbElements,
                                    simd::eMemoryPlace place, const TCast& cast)
{
    if constexpr (ISA == eInstructionSet::eNone) {
        simd::forEachPack<1>(nbElements,
                             [=](unsigned long i) ORLIX_SIMD_LAMBDA { cast(source + i).store(destination + i); });
    } else {
        simd::mapPacks<simd::Pack<ISA, TOut>::s_nbElements>(source, destination, nbElements, place, cast);
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
    if constexpr (std::is_same_v<TOut, unsigned char>) {
        if (block.bBinary) {
            details::castElements<ISA>(
                source, destination, info.nbElements, block.place,
                [](const TIn* from) ORLIX_SIMD_LAMBDA { return details::castBinary<TIn, TOut, ISA>(from); });
            return succeed();
        }
    }
    details::castElements<ISA>(
        source, destination, info.nbElements, block.place,
        [](const TIn* from) ORLIX_SIMD_LAMBDA { return details::castGeneric<TIn, TOut, ISA>(from); });
    return succeed();
}

} // namespace orlix::imaproc::util
