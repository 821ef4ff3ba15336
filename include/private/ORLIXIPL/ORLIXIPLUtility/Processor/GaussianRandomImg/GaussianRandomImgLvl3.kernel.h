// The kernel of normal random values, once for all element types and instruction sets; included by the files of
// GaussianRandomImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/NormalRandom.h"
#include "ORLIX/ORLIXMath/Simd/RandomFill.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(GaussianRandomImgLvl3, plain, sse2, avx2, avx512)

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> GaussianRandomImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    using Generator = simd::NormalRandom<ISA, ISA, T>;
    T* const destination = static_cast<T*>(accessBlock<attr::OutYStrip2d>());
    unsigned int states[Generator::s_nbLanes];
    const unsigned long nbBefore = fillStates<Generator>(states);
    Generator generator(m_mean, m_stdDev, states);
    simd::fillRandom(generator, destination, info.nbElements, nbBefore, getOutputPlace());
    return succeed();
}

} // namespace orlix::imaproc::util
