// The kernel that draws lines into volumes, once for all instruction sets; included by the files of BuildLines3dImgLvl3
// only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LatticeLine.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LinePixels.h"
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"
#include "ORLIXIPL/ORLIXImageProcessing/UntypedKernelRow.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(BuildLines3dImgLvl3, plain, sse2, avx2, avx512)

/// Beside a line, far from it: a distance that sets no pixel.
constexpr float g_farFromLine = 1.0F;

template <eInstructionSet::domain ISA>
ProcessingResult<bool> BuildLines3dImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    unsigned char* const line = static_cast<unsigned char*>(accessBlock<attr::OutBinZStrip3d>());
    if (m_spacing.lines != LineSpacing::eApart) {
        __builtin_memset(line, m_spacing.lines == LineSpacing::eDense ? 1 : 0, info.nbElements);
        return succeed();
    }
    const LineSpacing spacing = m_spacing;
    const Angle theta = m_theta;
    const Angle phi = m_phi;
    const Angle alpha = m_alpha;
    const float centreX = m_centreX;
    const float y = static_cast<float>(m_firstY + info.currentLine % m_sizeY) - m_centreY;
    const float z = static_cast<float>(m_firstZ + info.currentLine / m_sizeY) - m_centreZ;
    const float ySine = phi.sine * y;
    const float yCosine = phi.cosine * y;
    const float zSine = z * theta.sine;
    const LineRange on{g_lineAbove, g_lineUpTo, 1};
    const auto distance = [=](const auto& wholeX) ORLIX_SIMD_LAMBDA {
        using Real = std::remove_cvref_t<decltype(wholeX)>;
        const Real none{};
        const Real x = wholeX - centreX;
        const Real u = (x * phi.cosine + ySine) * theta.cosine - zSine;
        const Real v = yCosine - phi.sine * x;
        const Real a = toNearestLine<Real>(v * alpha.cosine - u * alpha.sine, spacing);
        const Real b = toNearestLine<Real>(none - u * alpha.cosine - v * alpha.sine, spacing);
        // By alpha once more, not back: lines of such volumes have always stood like that.
        const Real e = b * alpha.cosine - a * alpha.sine;
        const Real f = b * alpha.sine + a * alpha.cosine;
        const Real far = none + g_farFromLine;
        const Real nearToo = f > none + g_lineUpTo ? far : e;
        return f >= none + g_lineAbove ? nearToo : far;
    };
    const unsigned long firstX = m_firstX + info.firstElement;
    if (m_inverse > 0.0F) {
        const LatticeLine lattice = latticeLineAt(y, z);
        drawPixels<ISA>(line, firstX, info.nbElements, on, distance,
                        [=](const auto& x) ORLIX_SIMD_LAMBDA { return lattice.isNear(x); });
    } else {
        drawPixels<ISA>(line, firstX, info.nbElements, on, distance);
    }
    return succeed();
}

} // namespace orlix::imaproc::util
