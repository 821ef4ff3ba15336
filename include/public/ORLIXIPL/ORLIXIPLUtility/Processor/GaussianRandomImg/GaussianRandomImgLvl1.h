// Normal random values into a whole image: hands its plans to GaussianRandomImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl2.h"

namespace orlix::imaproc::util {

/// Has no rule and makes no output: the image has to be given.
class ORLIXIPLUTILITY_API GaussianRandomImgLvl1 final
    : public RandomLevel<
          PlanLevel<GaussianRandomImgLvl1, UtilityLibrary, GaussianRandomImgLvl2,
                    SameForPlans<attr::InGaussianParameter>, ByRandomPlan<attr::OutImg, attr::OutSubImg2d>>>
{
public:
    static constexpr processor::ProcessorText g_text{"GaussianRandomImgLvl1",
                                                     eProcessorMessage::eGaussianRandomImgLvl1};

    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;

    GaussianRandomImgLvl1();
    ~GaussianRandomImgLvl1() override;
};

} // namespace orlix::imaproc::util
