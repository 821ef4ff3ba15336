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
    const LineSpacing spacing = m_spacing;
    const float sine = m_sine;
    const float base = static_cast<float>(m_firstY + info.currentLine) * m_cosine - m_centre;
    drawPixels<ISA>(line, m_firstX + info.firstElement, info.nbElements,
                    [=](const auto& x) ORLIX_SIMD_LAMBDA { return toNearestLine(base - sine * x, spacing); });
    return succeed();
}

} // namespace orlix::imaproc::util
