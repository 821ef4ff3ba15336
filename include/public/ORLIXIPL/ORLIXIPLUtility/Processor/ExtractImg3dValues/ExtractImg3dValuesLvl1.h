// Values at points of a whole image: hands its volumes to ExtractImg3dValuesLvl2, each with its points.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/FromImagePlanIndexedInitializer.h"

namespace orlix::imaproc::util {

/// A method that is not set is set to the default one, and stays so. Before the volumes begin, each gets as many values
/// as it has points.
class ORLIXIPLUTILITY_API ExtractImg3dValuesLvl1 final
    : public PlanLevel<ExtractImg3dValuesLvl1, UtilityLibrary, ExtractImg3dValuesLvl2,
                       ByVolume<attr::InImg3d, attr::InSubImg3d>,
                       EntryByPlan<attr::InPICoords3dColl, attr::InCoords3dColl>,
                       SameForPlans<attr::InOptInterpolationPolicy, attr::InInterpolationPolicy>,
                       SameForPlans<attr::InOptImageValueExtractionMethod, attr::InImageValueExtractionMethod,
                                    OrElse<&attr::createDefaultImageValueExtractionMethod>>,
                       EntryByPlan<attr::OutPIImgGreyValues, attr::OutImgGreyValues>>
{
public:
    static constexpr processor::ProcessorText g_text{"ExtractImg3dValuesLvl1",
                                                     eProcessorMessage::eExtractImg3dValuesLvl1};

    using Rule = processor::AllOf<MatchImagePlans<attr::InPICoords3dColl, attr::InImg3d, eImageParts::eVolumes>,
                                  MatchImagePlans<attr::OutPIImgGreyValues, attr::InImg3d, eImageParts::eVolumes>>;
    using Initializers = processor::OutputInitializers<FromImageButVolume<attr::OutPIImgGreyValues, attr::InImg3d>>;

    ExtractImg3dValuesLvl1();
    ~ExtractImg3dValuesLvl1() override;

protected:
    processor::StepResult preProcess() override;
};

} // namespace orlix::imaproc::util
