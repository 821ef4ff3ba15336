// Uniform random values into a whole image: hands its plans to RandomImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl2.h"

namespace orlix::imaproc::util {

/// Makes no output: the image has to be given. A range that nobody set is set to all that the image's element type can
/// hold, and stays so.
class ORLIXIPLUTILITY_API RandomImgLvl1 final
    : public RandomLevel<PlanLevel<RandomImgLvl1, UtilityLibrary, RandomImgLvl2,
                                   SameForPlans<attr::InOptOutputRange, attr::InOutputRange>,
                                   ByRandomPlan<attr::OutImg, attr::OutSubImg2d>>>
{
public:
    static constexpr processor::ProcessorText g_text{"RandomImgLvl1", eProcessorMessage::eRandomImgLvl1};

    using Rule = processor::IfSet<attr::InOptOutputRange, RandomImgRule<attr::OutImg, attr::InOptOutputRange>>;
    using Initializers = processor::AllOutputsGiven;

    RandomImgLvl1();
    ~RandomImgLvl1() override;

protected:
    /// Sets the range that nobody set.
    processor::StepResult preProcess() override;
};

} // namespace orlix::imaproc::util
