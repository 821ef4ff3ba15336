// A smaller image into a copy of a larger one, or into that one itself: hands the volumes to PutROI3dImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateInOut.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API PutROI3dImgLvl1 final
    : public PlanLevel<PutROI3dImgLvl1, UtilityLibrary, PutROI3dImgLvl2,
                       ByVolume<attr::InImg3d, attr::InSubImg3d, PlacedFor<attr::OutImg>>,
                       ByVolume<attr::InROIImg3d, attr::InSubROIImg3d>, SameForPlans<attr::InInputImg3dOffset>,
                       ByVolume<attr::OutImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"PutROI3dImgLvl1", eProcessorMessage::ePutROI3dImgLvl1};

    /// An output like the input, a region of the same element type, with as many channels and time steps,
    /// within the input.
    using Rule = processor::AllOf<MatchSizeAndType<attr::InImg3d, attr::OutImg>,
                                  MatchBufferType<attr::InImg3d, attr::InROIImg3d>,
                                  MatchSize<attr::InImg3d, attr::InROIImg3d, eMatchImageSizeType::eColorAndTime>,
                                  ContainsROI3d<attr::InImg3d, attr::InInputImg3dOffset, attr::InROIImg3d>,
                                  RegionWithin3d<attr::InImg3d, attr::InInputImg3dOffset, attr::InROIImg3d>>;
    using Initializers = processor::OutputInitializers<DuplicateInOut<attr::InImg3d, attr::OutImg>>;

    PutROI3dImgLvl1();
    ~PutROI3dImgLvl1() override;
};

} // namespace orlix::imaproc::util
