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

/// Casts `nbElements` elements one by one; the compiler makes of it what it can.
template <class TCast, class TIn, class TOut>
ORLIX_SIMD_INLINE void castElements(const TIn* source, TOut* destination, unsigned long nbElements)
{
    simd::forEachPack<1>(nbElements,
                         [=](unsigned long i) ORLIX_SIMD_LAMBDA { TCast::apply(source + i).store(destination + i); });
}

/// Casts packs; the last one may run into the room behind the block.
template <class TCast, class TIn, class TOut>
ORLIX_SIMD_INLINE void castPacks(const TIn* source, TOut* destination, unsigned long nbElements,
                                 simd::eMemoryPlace place)
{
    simd::mapPacks<TCast::s_nbElements>(source, destination, nbElements, place,
                                        [](const TIn* from) ORLIX_SIMD_LAMBDA { return TCast::apply(from); });
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
            details::castPacks<TCast>(source, destination, info.nbElements, block.place);
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
