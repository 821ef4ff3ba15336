// The threshold kernel, once for all element types and instruction sets; included by the files of
// BasicThresholdImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/BlockMap.h"
#include "ORLIX/ORLIXMath/Simd/RangeTest.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(BasicThresholdImgLvl3, plain, sse2, avx2, avx512)

/// A step takes a pack of the input and fills a register of the output. The last one is taken whole, past the count.
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> BasicThresholdImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const T* const source = static_cast<const T*>(accessBlock<attr::InYStrip2d>());
    unsigned char* const destination = static_cast<unsigned char*>(accessBlock<attr::OutBinYStrip2d>());
    const simd::RangeTest<ISA, T> test(m_low.as<T>(), m_high.as<T>());
    simd::mapBlock<ISA>(source, destination, info.nbElements, getOutputPlace(),
                        [&test](const T* from) ORLIX_SIMD_LAMBDA { return test(simd::Pack<ISA, T>::load(from)); });
    return succeed();
}

} // namespace orlix::imaproc::util
