// Plan into volume: along z the plan is copied by CopyImgLvl2, else its strips go to PutSlice3dImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceRuleUtils.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API PutSlice3dImgLvl2 final
    : public StripLevel<PutSlice3dImgLvl2, UtilityLibrary, PutSlice3dImgLvl3, SameForStrips<attr::InSubImg3d>,
                        ByYStrip<attr::InSubImg2d, attr::InYStrip2d>, SameForStrips<attr::InAxis>,
                        SameForStrips<attr::InSliceIndex>, SameForStrips<attr::OutImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"PutSlice3dImgLvl2", eProcessorMessage::ePutSlice3dImgLvl2};

    using Rule = processor::AllOf<MatchSizeAndType<attr::InSubImg3d, attr::OutImg>, //
                                  IsSliceOf<attr::InSubImg2d, attr::InSubImg3d>>;
    using Initializers = processor::AllOutputsGiven;

    PutSlice3dImgLvl2();
    ~PutSlice3dImgLvl2() override;

    /// A pixel along x costs a cache line of the volume twice: it is read, and written back.
    template <class TValues>
    static unsigned weightOf(const TValues& values)
    {
        const eAxis axis = values.template get<attr::InAxis>();
        return (axis == eAxis::eX ? 2 : 1) *
               bytesPerSliceByte(*processor::pointerTo(values.template get<attr::InSubImg3d>()), axis);
    }

protected:
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override;

private:
    processor::ProviderResult copyXY(const core::BasePriority& priority,
                                     boost::shared_ptr<core::BaseActionProvider>& provider);

    StaticDispatch<CopyImgLvl2, SubImageSplit<CopyImgLvl2, attr::OutImg>, SubImageSplit<CopyImgLvl2, attr::InSubImg2d>>
        m_copy;
};

} // namespace orlix::imaproc::util
