// Whole images: the volume is copied by CopyImgLvl2, then its volumes go to PutSlice3dImgLvl2, each with a plan of the
// slice.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/CallerCheck.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/TwoStageLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateInOut.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API PutSlice3dImgLvl1 final
    : public TwoStageLevel<
          PutSlice3dImgLvl1, UtilityLibrary,
          AttributeList<attr::InImg3d, attr::InImg2d, attr::InAxis, attr::InSliceIndex, attr::OutImg>,
          Stage<StaticDispatch, CopyImgLvl2, ByPlan<attr::OutImg>, ByPlan<attr::InImg3d, attr::InSubImg2d>>,
          Stage<StaticDispatch, PutSlice3dImgLvl2, ByVolume<attr::OutImg>, SameForPlans<attr::InSliceIndex>,
                SameForPlans<attr::InAxis>, ByPlan<attr::InImg2d, attr::InSubImg2d>,
                ByVolume<attr::InImg3d, attr::InSubImg3d>>>,
      public processor::CallerCheck
{
public:
    static constexpr processor::ProcessorText g_text{"PutSlice3dImgLvl1", eProcessorMessage::ePutSlice3dImgLvl1};

    using Rule = processor::AllOf<MatchSizeAndType<attr::InImg3d, attr::OutImg>, //
                                  IsSliceOf<attr::InImg2d, attr::InImg3d>>;
    using Initializers = processor::OutputInitializers<DuplicateInOut<attr::InImg3d, attr::OutImg>>;
    /// The volume would be copied onto itself.
    using NothingFirst = InSitu<attr::InImg3d, attr::OutImg>;
    static constexpr bool g_bStraight = true;
    /// Where the slice is a plan of the volume, both stages are copies.
    template <class TValues>
    static bool worksOnDevice(const TValues& values)
    {
        const eAxis axis = values.template get<attr::InAxis>();
        return axis != eAxis::eX && axis != eAxis::eY;
    }

    PutSlice3dImgLvl1();
    ~PutSlice3dImgLvl1() override;

    /// The slice's place is one of the volume's, and both have the same element types.
    ProcessingResult<bool> checkForCaller() const override;
};

} // namespace orlix::imaproc::util
