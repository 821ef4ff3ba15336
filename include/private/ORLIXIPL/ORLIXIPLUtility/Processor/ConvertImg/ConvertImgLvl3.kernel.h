// The conversion kernel, once for all pairs of types and instruction sets; included by the files of ConvertImgLvl3
// only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/BlockMap.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgCast.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(ConvertImgLvl3, plain, sse2, avx2, avx512)

/// Which cast it is depends on the output's type and is decided before the loop.
template <class TIn, class TOut, eInstructionSet::domain ISA>
ProcessingResult<bool> ConvertImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const TIn* const source = static_cast<const TIn*>(accessBlock<attr::InYStrip2d>());
    TOut* const destination = static_cast<TOut*>(accessBlock<attr::OutYStrip2d>());
    if constexpr (std::is_same_v<TOut, unsigned char>) {
        if (m_bBinary) {
            simd::mapBlock<ISA>(source, destination, info.nbElements, getOutputPlace(),
                                [](const TIn* from)
                                    ORLIX_SIMD_LAMBDA { return details::castBinary<TIn, TOut, ISA>(from); });
            return succeed();
        }
    }
    simd::mapBlock<ISA>(source, destination, info.nbElements, getOutputPlace(),
                        [](const TIn* from) ORLIX_SIMD_LAMBDA { return details::castGeneric<TIn, TOut, ISA>(from); });
    return succeed();
}

} // namespace orlix::imaproc::util
