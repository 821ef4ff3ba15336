// The threshold kernel, once for all element types and instruction sets; included by the files of
// BasicThresholdImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackMap.h"
#include "ORLIX/ORLIXMath/Simd/RangeTest.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

ORLIX_DECLARE_KERNEL_TABLE(BasicThresholdImgLvl3, plain)
ORLIX_DECLARE_KERNEL_TABLE(BasicThresholdImgLvl3, sse2)
ORLIX_DECLARE_KERNEL_TABLE(BasicThresholdImgLvl3, avx2)
ORLIX_DECLARE_KERNEL_TABLE(BasicThresholdImgLvl3, avx512)

namespace orlix::imaproc::util {

/// A step takes a pack of the input and fills a register of the output. The last one is taken whole, past the count.
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> BasicThresholdImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    using Pack = simd::Pack<ISA, T>;
    constexpr unsigned long width = Pack::s_nbElements;
    const Block block = accessKernelBlock();
    const T* const source = static_cast<const T*>(block.source);
    unsigned char* const destination = static_cast<unsigned char*>(block.destination);
    const simd::RangeTest<ISA, T> test(block.low.as<T>(), block.high.as<T>());
    if constexpr (ISA == eInstructionSet::eNone) {
        simd::forEachPack<width>(info.nbElements, [=, &test](unsigned long i) ORLIX_SIMD_LAMBDA {
            test(Pack::load(source + i)).store(destination + i);
        });
    } else {
        simd::mapPacks<width>(source, destination, info.nbElements, block.place,
                              [&test](const T* from) ORLIX_SIMD_LAMBDA { return test(Pack::load(from)); });
    }
    return succeed();
}

} // namespace orlix::imaproc::util
