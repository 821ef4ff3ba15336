// Normal random values into a plan: hands its strips to GaussianRandomImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API GaussianRandomImgLvl2 final
    : public RandomLevel<
          StripLevel<GaussianRandomImgLvl2, UtilityLibrary, GaussianRandomImgLvl3,
                     SameForStrips<attr::InGaussianParameter>, ByRandomYStrip<attr::OutSubImg2d, attr::OutYStrip2d>>>
{
public:
    static constexpr processor::ProcessorText g_text{"GaussianRandomImgLvl2",
                                                     eProcessorMessage::eGaussianRandomImgLvl2};
    /// A nanosecond an element, of whatever size.
    static constexpr unsigned g_dispatchWeight = 8;

    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;

    GaussianRandomImgLvl2();
    ~GaussianRandomImgLvl2() override;
};

} // namespace orlix::imaproc::util
