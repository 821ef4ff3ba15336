// One value into a whole image: hands its plans to EraseImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl2.h"

namespace orlix::imaproc::util {

/// Has no rule and makes no output: the image has to be given.
class ORLIXIPLUTILITY_API EraseImgLvl1 final
    : public PlanLevel<EraseImgLvl1, UtilityLibrary, EraseImgLvl2, SameForPlans<attr::InOptEraseValue>,
                       ByPlan<attr::OutImg, attr::OutSubImg2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"EraseImgLvl1", eProcessorMessage::eEraseImgLvl1};

    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;

    EraseImgLvl1();
    ~EraseImgLvl1() override;
};

} // namespace orlix::imaproc::util
