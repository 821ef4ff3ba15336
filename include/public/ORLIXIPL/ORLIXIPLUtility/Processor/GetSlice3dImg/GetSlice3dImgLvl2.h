// Volume to plan: along z one plan is copied by CopyImgLvl2, else strips of the output go to GetSlice3dImgLvl3.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/CallerCheck.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyStraight.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceRuleUtils.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API GetSlice3dImgLvl2 final
    : public StripLevel<GetSlice3dImgLvl2, UtilityLibrary, GetSlice3dImgLvl3, SameForStrips<attr::InSubImg3d>,
                        SameForStrips<attr::InAxis>, SameForStrips<attr::InSliceIndex>,
                        ByYStrip<attr::OutImg2d, attr::OutYStrip2d>>,
      public processor::CallerCheck
{
public:
    static constexpr processor::ProcessorText g_text{"GetSlice3dImgLvl2", eProcessorMessage::eGetSlice3dImgLvl2};

    using Rule = processor::AllOf<MatchBufferType<attr::InSubImg3d, attr::OutImg2d>, //
                                  IsSliceOf<attr::OutImg2d, attr::InSubImg3d>>;
    using Initializers = processor::AllOutputsGiven;

    GetSlice3dImgLvl2();
    ~GetSlice3dImgLvl2() override;

    /// The slice is one of the volume's.
    ProcessingResult<bool> checkForCaller() const override;

    /// A pixel along x costs a cache line of the volume.
    template <class TValues>
    static unsigned weightOf(const TValues& values)
    {
        return bytesPerSliceByte(*processor::pointerTo(values.template get<attr::InSubImg3d>()),
                                 values.template get<attr::InAxis>());
    }

    /// Those of the frame, and for a slice along z, which the frame's rows don't tell, the copy of a plan.
    template <class TValues>
    static bool isStraight(const TValues& values)
    {
        if (isCutByLevel3(values.template get<attr::InAxis>())) {
            return DispatchLevel::isStraight(values);
        }
        const image::BaseImage& volume = *processor::pointerTo(values.template get<attr::InSubImg3d>());
        return values.template get<attr::InSliceIndex>() < volume.getSizeZ() &&
               isStraightCopy(volume, *processor::pointerTo(values.template get<attr::OutImg2d>()));
    }
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        if (isCutByLevel3(values.template get<attr::InAxis>())) {
            return DispatchLevel::runStraight(values);
        }
        const image::BaseImage& volume = *processor::pointerTo(values.template get<attr::InSubImg3d>());
        const image::SubImage plan(volume, image::planGeometry(volume, 0), values.template get<attr::InSliceIndex>(), 0,
                                   0);
        return copyStraight(plan, *processor::pointerTo(values.template get<attr::OutImg2d>()));
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
