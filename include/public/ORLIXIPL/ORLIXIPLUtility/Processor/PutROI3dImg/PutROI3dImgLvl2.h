// A smaller volume into a copy of a larger one: copies first, by CopyImgLvl2, then puts the smaller one in by
// PutROI3dImgLvl3, since both write the same plans.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/ROIRuleTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/TwoStageLevel.h"

namespace orlix::imaproc::util {

/// The plans that the smaller volume takes up in the larger one.
struct PutROI3dImgRange
{
    template <class TValues>
    static StripRange of(const TValues& values)
    {
        const image::BaseImage& roi = *values.template get<attr::InSubROIImg3d>();
        const unsigned long bytes = roi.getSizeY() * roi.getSizeX() * image::elementSize(roi.getBufferType());
        return {values.template get<attr::InInputImg3dOffset>()->Z, roi.getSizeZ(), bytes};
    }
};

class ORLIXIPLUTILITY_API PutROI3dImgLvl2 final
    : public TwoStageLevel<
          PutROI3dImgLvl2, UtilityLibrary,
          AttributeList<attr::InSubImg3d, attr::InSubROIImg3d, attr::InInputImg3dOffset, attr::OutImg>,
          Stage<StaticDispatch, CopyImgLvl2, ByPlan<attr::InSubImg3d, attr::InSubImg2d, PlacedFor<attr::OutImg>>,
                ByPlan<attr::OutImg>>,
          Stage<DynamicDispatch, PutROI3dImgLvl3, ByZStrip<attr::InSubROIImg3d, attr::InZStrip3d>,
                SameForStrips<attr::InInputImg3dOffset>,
                ByZSubStrip<attr::OutImg, attr::InOutZStrip3d, PutROI3dImgRange>>>
{
public:
    static constexpr processor::ProcessorText g_text{"PutROI3dImgLvl2", eProcessorMessage::ePutROI3dImgLvl2};

    using Rule = processor::AllOf<MatchSizeAndType<attr::InSubImg3d, attr::OutImg>,
                                  MatchBufferType<attr::InSubImg3d, attr::InSubROIImg3d>,
                                  ContainsROI3d<attr::InSubImg3d, attr::InInputImg3dOffset, attr::InSubROIImg3d>,
                                  RegionWithin3d<attr::InSubImg3d, attr::InInputImg3dOffset, attr::InSubROIImg3d>>;
    using Initializers = processor::AllOutputsGiven;
    using OnlySecond = InSitu<attr::InSubImg3d, attr::OutImg>;
    static constexpr bool g_bStraight = true;

    PutROI3dImgLvl2();
    ~PutROI3dImgLvl2() override;
};

} // namespace orlix::imaproc::util
