// Grey image to binary image: hands its plans to BasicThresholdImgLvl2.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl2.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateInOut.h"

namespace orlix::imaproc::util {

/// A pixel of OutBinImg is 1 where that of InImg lies between InThresholdMin and InThresholdMax, both included, and 0
/// elsewhere. The operator has no function of its own: make the processor by its name, from processor::ProcessorFactory
/// or DynamicObjectFactory.
/// shapes   in (X, Y, Z, C, T) of any element type -> out (X, Y, Z, C, T) binary
/// bounds   grey values, as the element type of the image takes them: without their fraction for integers, so 1.5 to
///          2.9 is 1 to 2, in single precision for Real32, where no NaN lies between any two
/// errors   other sizes, an output that isn't binary, a bound outside the range of the image's type (NaN and infinities
///          always are), a lower bound above the upper one: the rule fails, the run ends, no pixel is written
/// threads  as many as core::accessExecutor() has; the input is only read
class ORLIXIPLUTILITY_API BasicThresholdImgLvl1 final
    : public PlanLevel<BasicThresholdImgLvl1, UtilityLibrary, BasicThresholdImgLvl2,
                       ByPlan<attr::InImg, attr::InSubImg2d>, SameForPlans<attr::InThresholdMin>,
                       SameForPlans<attr::InThresholdMax>, ByPlan<attr::OutBinImg>>
{
public:
    static constexpr processor::ProcessorText g_text{"BasicThresholdImgLvl1",
                                                     eProcessorMessage::eBasicThresholdImgLvl1};

    using Rule = BasicThresholdImgRule<attr::InImg, attr::OutBinImg>;
    using Initializers = processor::OutputInitializers<DuplicateInOut<attr::InImg, attr::OutBinImg>>;

    BasicThresholdImgLvl1();
    ~BasicThresholdImgLvl1() override;
};

} // namespace orlix::imaproc::util
