// Two whole images: hands their plans to CompareImgLvl2 and merges what these find.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl2.h"

namespace orlix::imaproc::util {

/// A tolerance that is not set is set to none, and stays so.
class ORLIXIPLUTILITY_API CompareImgLvl1 final
    : public PlanLevel<CompareImgLvl1, UtilityLibrary, CompareImgLvl2, ByPlan<attr::InImg1, attr::InSubImg2d1>,
                       ByPlan<attr::InImg2, attr::InSubImg2d2>,
                       SameForPlans<attr::InOptImgComparisonTolerance, attr::InImgComparisonTolerance,
                                    OrElse<&attr::createImgComparisonNoTolerance>>,
                       MergedByPlan<attr::OutCompareResult, attr::InImg1>>
{
public:
    static constexpr processor::ProcessorText g_text{"CompareImgLvl1", eProcessorMessage::eCompareImgLvl1};

    using Rule = MatchSizeAndType<attr::InImg1, attr::InImg2>;
    using Initializers = processor::OutputInitializers<processor::Allocated<attr::OutCompareResult>>;

    CompareImgLvl1();
    ~CompareImgLvl1() override;
};

} // namespace orlix::imaproc::util
