// The kernel that draws lines, once for all instruction sets; included by the files of BuildLines2dImgLvl3 only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LinePixels.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"
#include "ORLIXIPL/ORLIXImageProcessing/UntypedKernelRow.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(BuildLines2dImgLvl3, plain, sse2, avx2, avx512)

template <eInstructionSet::domain ISA>
ProcessingResult<bool> BuildLines2dImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    unsigned char* const line = static_cast<unsigned char*>(accessBlock<attr::OutBinYStrip2d>());
    if (m_spacing.lines != LineSpacing::eApart) {
        __builtin_memset(line, m_spacing.lines == LineSpacing::eDense ? 1 : 0, info.nbElements);
        return succeed();
    }
    const float period = m_spacing.period;
    const float inverse = m_inverse;
    const float sine = m_sine;
    const float base = static_cast<float>(m_firstY + info.currentLine) * m_cosine - m_centre;
    const unsigned long firstX = m_firstX + info.firstElement;
    const LineRange off{m_spacing.offLow, m_spacing.offHigh, 0};
    if (inverse > 0.0F) {
        drawPixels<ISA>(line, firstX, info.nbElements, off, [=](const auto& x) ORLIX_SIMD_LAMBDA {
            using Real = std::remove_cvref_t<decltype(x)>;
            const Real distance = base - sine * x;
            return behindLine<Real>(distance, distance * inverse, period);
        });
    } else {
        drawPixels<ISA>(line, firstX, info.nbElements, off, [=](const auto& x) ORLIX_SIMD_LAMBDA {
            using Real = std::remove_cvref_t<decltype(x)>;
            const Real distance = base - sine * x;
            return behindLine<Real>(distance, distance / period, period);
        });
    }
    return succeed();
}

} // namespace orlix::imaproc::util
