// Values at points of a whole image: hands its plans to ExtractImg2dValuesLvl2, each with its points.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/FromImagePlanIndexedInitializer.h"

namespace orlix::imaproc::util {

/// A method that is not set is set to the default one, and stays so. Before the plans begin, each gets as many values
/// as it has points.
class ORLIXIPLUTILITY_API ExtractImg2dValuesLvl1 final
    : public PlanLevel<ExtractImg2dValuesLvl1, UtilityLibrary, ExtractImg2dValuesLvl2,
                       ByPlan<attr::InImg, attr::InSubImg2d>, EntryByPlan<attr::InPICoords2dColl, attr::InCoords2dColl>,
                       SameForPlans<attr::InOptInterpolationPolicy, attr::InInterpolationPolicy>,
                       SameForPlans<attr::InOptImageValueExtractionMethod, attr::InImageValueExtractionMethod,
                                    OrElse<&attr::createDefaultImageValueExtractionMethod>>,
                       EntryByPlan<attr::OutPIImgGreyValues, attr::OutImgGreyValues>>
{
public:
    static constexpr processor::ProcessorText g_text{"ExtractImg2dValuesLvl1",
                                                     eProcessorMessage::eExtractImg2dValuesLvl1};

    using Rule = processor::AllOf<MatchImagePlans<attr::InPICoords2dColl, attr::InImg>,
                                  MatchImagePlans<attr::OutPIImgGreyValues, attr::InImg>>;
    using Initializers = processor::OutputInitializers<FromImage<attr::OutPIImgGreyValues, attr::InImg>>;

    ExtractImg2dValuesLvl1();
    ~ExtractImg2dValuesLvl1() override;

protected:
    processor::StepResult preProcess() override;
};

} // namespace orlix::imaproc::util
