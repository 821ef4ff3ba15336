// The comparison kernel, once for all element types and instruction sets; included by the files of CompareImgLvl3 only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLanes.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

ORLIX_DECLARE_KERNEL_TABLE(CompareImgLvl3, plain)
ORLIX_DECLARE_KERNEL_TABLE(CompareImgLvl3, sse2)
ORLIX_DECLARE_KERNEL_TABLE(CompareImgLvl3, avx2)
ORLIX_DECLARE_KERNEL_TABLE(CompareImgLvl3, avx512)

namespace orlix::imaproc::util {

/// Differing elements among the first `nbElements`, a multiple of 64, by vectors alone.
template <class TMode, class T, eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE unsigned long countInVectors(const T* first, const T* second, unsigned long nbElements,
                                               const CompareImgLvl3::Limits& limits)
{
    if constexpr (std::is_same_v<TMode, ComparedExactly>) {
        return countExactly<T, ISA>(first, second, nbElements);
    } else if constexpr (std::is_same_v<TMode, ComparedAbsolutely>) {
        return countAbsolutely<T, ISA>(first, second, nbElements, limits);
    } else {
        return countRelatively<T, ISA, std::is_same_v<TMode, ComparedBothWays>>(first, second, nbElements, limits);
    }
}

/// Whole vectors first, then element by element; never past the end of the line.
template <class TMode, class T, eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE unsigned long countDifferent(const T* first, const T* second, unsigned long nbElements,
                                               const CompareImgLvl3::Limits& limits)
{
    unsigned long nbDifferent = 0;
    unsigned long i = 0;
    if constexpr (ISA != eInstructionSet::eNone) {
        i = nbElements - nbElements % simd::Register<ISA>::s_nbBytes;
        nbDifferent = countInVectors<TMode, T, ISA>(first, second, i, limits);
    }
    for (; i < nbElements; ++i) {
        nbDifferent += TMode::differ(first[i], second[i], limits) ? 1 : 0;
    }
    return nbDifferent;
}

/// Counts the line. Its first difference is looked for only where it has one and none is recorded yet, which happens
/// once a strip.
template <class TMode, class T, eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE void CompareImgLvl3::compareLine(const processor::ProcessingInfo& info, const Line& line)
{
    const T* const first = static_cast<const T*>(line.first);
    const T* const second = static_cast<const T*>(line.second);
    const unsigned long nbDifferent = countDifferent<TMode, T, ISA>(first, second, info.nbElements, *line.limits);
    if (nbDifferent > 0 && isSearching()) {
        unsigned long x = 0;
        while (!TMode::differ(first[x], second[x], *line.limits)) {
            ++x;
        }
        recordFirst(info, x, static_cast<double>(first[x]), static_cast<double>(second[x]));
    }
    addCounts(nbDifferent, info.nbElements);
}

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> CompareImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const Line line = accessKernelLine();
    switch (line.limits->mode) {
    case attr::eImgComparisonToleranceMode::eAbsoluteTolerance:
        compareLine<ComparedAbsolutely, T, ISA>(info, line);
        break;
    case attr::eImgComparisonToleranceMode::eRelativeTolerance:
        compareLine<ComparedRelatively, T, ISA>(info, line);
        break;
    case attr::eImgComparisonToleranceMode::eBothTolerances: compareLine<ComparedBothWays, T, ISA>(info, line); break;
    default: compareLine<ComparedExactly, T, ISA>(info, line); break;
    }
    return succeed();
}

} // namespace orlix::imaproc::util
