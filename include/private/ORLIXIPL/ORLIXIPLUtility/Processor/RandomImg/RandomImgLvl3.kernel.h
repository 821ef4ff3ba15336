// The kernel of uniform random values, once for all element types and instruction sets; included by the files of
// RandomImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/UniformRandomBlocks.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(RandomImgLvl3, plain, sse2, avx2, avx512)

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> RandomImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    using Generator = simd::UniformRandomLCG<ISA, T>;
    T* const destination = static_cast<T*>(accessBlock<attr::OutYStrip2d>());
    unsigned int states[Generator::s_nbLanes];
    const unsigned long nbBefore = fillStates<Generator>(states);
    const T min = m_min.as<T>();
    const T max = m_max.as<T>();
    const Generator generator(min, max, states);
    simd::fillUniform(generator, min, max, destination, info.nbElements, nbBefore, getOutputPlace());
    return succeed();
}

} // namespace orlix::imaproc::util
