// Lines into a strip, by a kernel chosen by instruction set.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgSize.h"
#include "ORLIXIPL/ORLIXIPLAttributes/StripAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ValueAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LineSpacing.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/UtilityLibrary.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

#include <optional>

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API BuildLines2dImgLvl3 final
    : public KernelLevel<BuildLines2dImgLvl3, UtilityLibrary, TypedBy<>, Plain<attr::InTheta>, Plain<attr::InOffset>,
                         ByLine<attr::OutBinYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"BuildLines2dImgLvl3", eProcessorMessage::eBuildLines2dImgLvl3};

    using Rule = processor::NoRule;

    BuildLines2dImgLvl3();
    ~BuildLines2dImgLvl3() override;

    /// From now on, what strips are of counts as a part of an image of size `whole`: its pixel (0, 0) is pixel `first`
    /// of that, whose lines are drawn.
    void drawPartOf(const attr::Img2dSizeRecord& whole, const attr::Img2dOffsetRecord& first);

    /// Draws `info.nbElements` pixels of a line, and nothing behind them, with instruction set ISA: 1 where a pixel is
    /// within half a pixel of the nearest line, 0 elsewhere. Its distance to the line through the centre is
    /// (y - H / 2) cos(theta) - (x - W / 2) sin(theta) for an image of W x H pixels, in single precision.
    template <eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo& info);

protected:
    /// Takes sine, cosine and centre once for all sets, so that none computes them in its own way.
    processor::StepResult preProcess() override;

private:
    struct Part
    {
        attr::Img2dSizeRecord whole;
        attr::Img2dOffsetRecord first;
    };

    std::optional<Part> m_part;
    LineSpacing m_spacing{};
    float m_inverse = 0.0F;     ///< of the spacing; 0: divide
    unsigned long m_firstX = 0; ///< of the strip's pixels in the image whose centre counts
    unsigned long m_firstY = 0;
    float m_sine = 0.0F;
    float m_cosine = 0.0F;
    float m_centre = 0.0F; ///< distance of pixel (0, 0) from the line through the centre, negated
};

} // namespace orlix::imaproc::util
