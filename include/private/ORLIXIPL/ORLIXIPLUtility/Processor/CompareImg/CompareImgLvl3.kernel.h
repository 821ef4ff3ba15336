// The comparison kernel, once for all element types and instruction sets; included by the files of CompareImgLvl3 only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLanes.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(CompareImgLvl3, plain, sse2, avx2, avx512)

/// Differing elements among the first `nbElements`, a multiple of 64, by vectors alone.
template <class TMode, class T, eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE unsigned long countInVectors(const T* first, const T* second, unsigned long nbElements,
                                               const CompareImgLvl3::Limits& limits)
{
    if constexpr (std::is_same_v<TMode, ComparedExactly>) {
        return countExactly<T, ISA>(first, second, nbElements);
    } else if constexpr (std::is_same_v<TMode, ComparedAbsolutely>) {
        return countAbsolutely<T, ISA>(first, second, nbElements, limits);
    } else if constexpr (sizeof(T) < 4) {
        return countNarrowRelatively<T, ISA, std::is_same_v<TMode, ComparedBothWays>>(first, second, nbElements,
                                                                                      limits);
    } else {
        return countWideRelatively<T, ISA, std::is_same_v<TMode, ComparedBothWays>>(first, second, nbElements, limits);
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

/// Counts the block. While the strip has no difference yet, it goes in steps, so that only the step with the first one
/// is searched element by element.
template <class TMode, class T, eInstructionSet::domain ISA>
ORLIX_SIMD_INLINE void CompareImgLvl3::compareBlock(const processor::ProcessingInfo& info)
{
    constexpr unsigned long searchStep = 4096; // a multiple of every set's blocking
    const T* const first = static_cast<const T*>(accessBlock<attr::InYStrip2d1>());
    const T* const second = static_cast<const T*>(accessBlock<attr::InYStrip2d2>());
    unsigned long nbDifferent = 0;
    unsigned long step = 0;
    for (unsigned long start = 0; start < info.nbElements; start += step) {
        const unsigned long nbLeft = info.nbElements - start;
        const bool bSearching = isSearching();
        step = bSearching && nbLeft > searchStep ? searchStep : nbLeft;
        const unsigned long nbFound = countDifferent<TMode, T, ISA>(first + start, second + start, step, m_limits);
        if (nbFound > 0 && bSearching) {
            unsigned long index = start;
            while (index + 1 < start + step && !TMode::differ(first[index], second[index], m_limits)) {
                ++index;
            }
            recordFirst(info, index, static_cast<double>(first[index]), static_cast<double>(second[index]));
        }
        nbDifferent += nbFound;
    }
    addCounts(nbDifferent, info.nbElements);
}

template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> CompareImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    switch (m_limits.mode) {
    case attr::eImgComparisonToleranceMode::eAbsoluteTolerance: compareBlock<ComparedAbsolutely, T, ISA>(info); break;
    case attr::eImgComparisonToleranceMode::eRelativeTolerance: compareBlock<ComparedRelatively, T, ISA>(info); break;
    case attr::eImgComparisonToleranceMode::eBothTolerances: compareBlock<ComparedBothWays, T, ISA>(info); break;
    default: compareBlock<ComparedExactly, T, ISA>(info); break;
    }
    return succeed();
}

} // namespace orlix::imaproc::util
