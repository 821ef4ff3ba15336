// Plan into volume: along z the plan is copied by CopyImgLvl2, else its strips go to PutSlice3dImgLvl3.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/CallerCheck.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyStraight.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceRuleUtils.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API PutSlice3dImgLvl2 final
    : public StripLevel<PutSlice3dImgLvl2, UtilityLibrary, PutSlice3dImgLvl3, SameForStrips<attr::InSubImg3d>,
                        ByYStrip<attr::InSubImg2d, attr::InYStrip2d>, SameForStrips<attr::InAxis>,
                        SameForStrips<attr::InSliceIndex>, SameForStrips<attr::OutImg>>,
      public processor::CallerCheck
{
public:
    static constexpr processor::ProcessorText g_text{"PutSlice3dImgLvl2", eProcessorMessage::ePutSlice3dImgLvl2};

    using Rule = processor::AllOf<MatchSizeAndType<attr::InSubImg3d, attr::OutImg>, //
                                  IsSliceOf<attr::InSubImg2d, attr::InSubImg3d>>;
    using Initializers = processor::AllOutputsGiven;

    PutSlice3dImgLvl2();
    ~PutSlice3dImgLvl2() override;

    /// The slice's place is one of the volume's, and both have the same element types.
    ProcessingResult<bool> checkForCaller() const override;

    /// A pixel along x costs a cache line of the volume twice: it is read, and written back.
    template <class TValues>
    static unsigned weightOf(const TValues& values)
    {
        const eAxis axis = values.template get<attr::InAxis>();
        return (axis == eAxis::eX ? 2 : 1) *
               bytesPerSliceByte(*processor::pointerTo(values.template get<attr::InSubImg3d>()), axis);
    }

    /// Those of the frame, and for a slice along z, which the frame's rows don't tell, the copy of a plan.
    template <class TValues>
    static bool isStraight(const TValues& values)
    {
        if (isCutByLevel3(values.template get<attr::InAxis>())) {
            return DispatchLevel::isStraight(values);
        }
        const image::BaseImage& volume = *processor::pointerTo(values.template get<attr::OutImg>());
        const image::BaseImage& slice = *processor::pointerTo(values.template get<attr::InSubImg2d>());
        return values.template get<attr::InSliceIndex>() < volume.getSizeZ() &&
               slice.getBufferType() == volume.getBufferType() && isStraightCopy(slice, volume);
    }
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        if (isCutByLevel3(values.template get<attr::InAxis>())) {
            return DispatchLevel::runStraight(values);
        }
        const image::BaseImage& volume = *processor::pointerTo(values.template get<attr::OutImg>());
        image::SubImage plan(volume, image::planGeometry(volume, 0), values.template get<attr::InSliceIndex>(), 0, 0);
        return copyStraight(*processor::pointerTo(values.template get<attr::InSubImg2d>()), plan);
    }

protected:
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    static bool isCutByLevel3(const eAxis& axis) { return axis == eAxis::eX || axis == eAxis::eY; }

    processor::ProviderResult copyXY(const core::BasePriority& priority,
                                     boost::shared_ptr<core::BaseActionProvider>& provider);

    StaticDispatch<CopyImgLvl2, SubImageSplit<CopyImgLvl2, attr::OutImg>, SubImageSplit<CopyImgLvl2, attr::InSubImg2d>>
        m_copy;
};

} // namespace orlix::imaproc::util
