// Lines into a whole binary image: hands its plans to BuildLines2dImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/BuildInitializerUtils.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/ROIRuleTypes.h"

namespace orlix::imaproc::util {

/// The output has the size that InOutputImg2dSize tells; a missing one is made with it.
class ORLIXIPLUTILITY_API BuildLines2dImgLvl1 final
    : public PlanLevel<BuildLines2dImgLvl1, UtilityLibrary, BuildLines2dImgLvl2, Kept<attr::InOutputImg2dSize>,
                       SameForPlans<attr::InTheta>, SameForPlans<attr::InOffset>, ByPlan<attr::OutBinImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"BuildLines2dImgLvl1", eProcessorMessage::eBuildLines2dImgLvl1};

    using Rule = processor::AllOf<MatchROI2d<attr::OutBinImg, attr::InOutputImg2dSize>, HasFixedType<attr::OutBinImg>>;
    using Initializers = processor::OutputInitializers<CustomOutput<attr::OutBinImg, OutputBuild2d>>;

    BuildLines2dImgLvl1();
    ~BuildLines2dImgLvl1() override;
};

} // namespace orlix::imaproc::util
