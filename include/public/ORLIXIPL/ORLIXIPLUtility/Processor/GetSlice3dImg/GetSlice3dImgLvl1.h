// Whole image to whole slice: hands its volumes to GetSlice3dImgLvl2, each with a plan of the output.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/CallerCheck.h"
#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/SliceInitializerUtils.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl2.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API GetSlice3dImgLvl1 final
    : public PlanLevel<GetSlice3dImgLvl1, UtilityLibrary, GetSlice3dImgLvl2, ByVolume<attr::InImg3d, attr::InSubImg3d>,
                       SameForPlans<attr::InAxis>, SameForPlans<attr::InSliceIndex>, ByPlan<attr::OutImg2d>>,
      public processor::CallerCheck
{
public:
    static constexpr processor::ProcessorText g_text{"GetSlice3dImgLvl1", eProcessorMessage::eGetSlice3dImgLvl1};

    using Rule = processor::AllOf<MatchBufferType<attr::InImg3d, attr::OutImg2d>, //
                                  IsSliceOf<attr::OutImg2d, attr::InImg3d>>;
    using Initializers = processor::OutputInitializers<CustomOutput<attr::OutImg2d, SliceInfo<attr::InImg3d>>>;

    GetSlice3dImgLvl1();
    ~GetSlice3dImgLvl1() override;

    /// The slice is one of the volume's.
    ProcessingResult<bool> checkForCaller() const override;
};

} // namespace orlix::imaproc::util
