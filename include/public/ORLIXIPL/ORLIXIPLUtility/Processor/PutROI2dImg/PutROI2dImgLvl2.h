// A smaller plan into a copy of a larger one: copies first, by CopyImgLvl3, then puts the smaller one in by
// PutROI2dImgLvl3, since both write the same lines.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/ROIRuleTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/TwoStageLevel.h"

namespace orlix::imaproc::util {

/// The lines that the smaller plan takes up in the larger one.
struct PutROI2dImgRange
{
    template <class TValues>
    static StripRange of(const TValues& values)
    {
        const image::BaseImage& roi = *values.template get<attr::InSubROIImg2d>();
        const unsigned long bytes = roi.getSizeX() * image::elementSize(roi.getBufferType());
        return {values.template get<attr::InInputImg2dOffset>()->Y, roi.getSizeY(), bytes};
    }
};

class ORLIXIPLUTILITY_API PutROI2dImgLvl2 final
    : public TwoStageLevel<
          PutROI2dImgLvl2, UtilityLibrary,
          AttributeList<attr::InSubImg2d, attr::InSubROIImg2d, attr::InInputImg2dOffset, attr::OutImg>,
          Stage<DynamicDispatch, CopyImgLvl3, ByYStrip<attr::InSubImg2d, attr::InYStrip2d, PlacedFor<attr::OutImg>>,
                ByYStrip<attr::OutImg, attr::OutYStrip2d>>,
          Stage<DynamicDispatch, PutROI2dImgLvl3, ByYStrip<attr::InSubROIImg2d, attr::InYStrip2d>,
                SameForStrips<attr::InInputImg2dOffset>,
                ByYSubStrip<attr::OutImg, attr::OutYStrip2d, PutROI2dImgRange>>>
{
public:
    static constexpr processor::ProcessorText g_text{"PutROI2dImgLvl2", eProcessorMessage::ePutROI2dImgLvl2};

    using Rule = processor::AllOf<MatchSizeAndType<attr::InSubImg2d, attr::OutImg>,
                                  MatchBufferType<attr::InSubImg2d, attr::InSubROIImg2d>,
                                  ContainsROI2d<attr::InSubImg2d, attr::InInputImg2dOffset, attr::InSubROIImg2d>,
                                  RegionWithin2d<attr::InSubImg2d, attr::InInputImg2dOffset, attr::InSubROIImg2d>>;
    using Initializers = processor::AllOutputsGiven;
    using OnlySecond = InSitu<attr::InSubImg2d, attr::OutImg>;
    static constexpr bool g_bStraight = true;

    PutROI2dImgLvl2();
    ~PutROI2dImgLvl2() override;
};

} // namespace orlix::imaproc::util
