// Uniform random values into a plan: hands its strips to RandomImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API RandomImgLvl2 final
    : public RandomLevel<StripLevel<RandomImgLvl2, UtilityLibrary, RandomImgLvl3, SameForStrips<attr::InOutputRange>,
                                    ByRandomYStrip<attr::OutSubImg2d, attr::OutYStrip2d>>>
{
public:
    static constexpr processor::ProcessorText g_text{"RandomImgLvl2", eProcessorMessage::eRandomImgLvl2};
    static constexpr unsigned g_dispatchWeight = 2;

    using Rule = RandomImgRule<attr::OutSubImg2d, attr::InOutputRange>;
    using Initializers = processor::AllOutputsGiven;

    RandomImgLvl2();
    ~RandomImgLvl2() override;
};

} // namespace orlix::imaproc::util
