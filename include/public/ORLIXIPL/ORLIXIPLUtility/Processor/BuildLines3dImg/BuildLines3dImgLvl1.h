// Lines into a whole binary image: hands its volumes to BuildLines3dImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/BuildInitializerUtils.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl2.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/ROIRuleTypes.h"

namespace orlix::imaproc::util {

/// The output has the size that InOutputImg3dSize tells; a missing one is made with it.
class ORLIXIPLUTILITY_API BuildLines3dImgLvl1 final
    : public PlanLevel<BuildLines3dImgLvl1, UtilityLibrary, BuildLines3dImgLvl2, Kept<attr::InOutputImg3dSize>,
                       SameForPlans<attr::InTheta>, SameForPlans<attr::InPhi>, SameForPlans<attr::InAlpha>,
                       SameForPlans<attr::InOffset>, ByVolume<attr::OutBinImg3d, attr::OutSubBinImg3d>>
{
public:
    static constexpr processor::ProcessorText g_text{"BuildLines3dImgLvl1", eProcessorMessage::eBuildLines3dImgLvl1};

    using Rule =
        processor::AllOf<MatchROI3d<attr::OutBinImg3d, attr::InOutputImg3dSize>, HasFixedType<attr::OutBinImg3d>>;
    using Initializers = processor::OutputInitializers<CustomOutput<attr::OutBinImg3d, OutputBuild3d>>;

    BuildLines3dImgLvl1();
    ~BuildLines3dImgLvl1() override;
};

} // namespace orlix::imaproc::util
