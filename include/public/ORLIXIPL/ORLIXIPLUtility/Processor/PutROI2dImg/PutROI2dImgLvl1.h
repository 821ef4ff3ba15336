// A smaller image into a copy of a larger one, or into that one itself: hands the plans to PutROI2dImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateInOut.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API PutROI2dImgLvl1 final
    : public PlanLevel<PutROI2dImgLvl1, UtilityLibrary, PutROI2dImgLvl2,
                       ByPlan<attr::InImg, attr::InSubImg2d, PlacedFor<attr::OutImg>>,
                       ByPlan<attr::InROIImg, attr::InSubROIImg2d>, SameForPlans<attr::InInputImg2dOffset>,
                       ByPlan<attr::OutImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"PutROI2dImgLvl1", eProcessorMessage::ePutROI2dImgLvl1};

    /// An output like the input, a region of the same element type, with as many plans, channels and time steps,
    /// within the input.
    using Rule =
        processor::AllOf<MatchSizeAndType<attr::InImg, attr::OutImg>, MatchBufferType<attr::InImg, attr::InROIImg>,
                         MatchSize<attr::InImg, attr::InROIImg, eMatchImageSizeType::eVolumeColorAndTime>,
                         ContainsROI2d<attr::InImg, attr::InInputImg2dOffset, attr::InROIImg>,
                         RegionWithin2d<attr::InImg, attr::InInputImg2dOffset, attr::InROIImg>>;
    using Initializers = processor::OutputInitializers<DuplicateInOut<attr::InImg, attr::OutImg>>;

    PutROI2dImgLvl1();
    ~PutROI2dImgLvl1() override;
};

} // namespace orlix::imaproc::util
