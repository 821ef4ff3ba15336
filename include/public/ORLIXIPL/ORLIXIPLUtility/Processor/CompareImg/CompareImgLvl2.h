// Two plans: hands their strips to CompareImgLvl3 and merges what these find.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/ResultRows.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API CompareImgLvl2 final
    : public StripLevel<CompareImgLvl2, UtilityLibrary, CompareImgLvl3, ByYStrip<attr::InSubImg2d1, attr::InYStrip2d1>,
                        ByYStrip<attr::InSubImg2d2, attr::InYStrip2d2>, SameForStrips<attr::InImgComparisonTolerance>,
                        MergedByStrip<attr::OutCompareResult>>
{
public:
    static constexpr processor::ProcessorText g_text{"CompareImgLvl2", eProcessorMessage::eCompareImgLvl2};

    using Rule = MatchSizeAndType<attr::InSubImg2d1, attr::InSubImg2d2>;
    using Initializers = processor::AllOutputsGiven;

    CompareImgLvl2();
    ~CompareImgLvl2() override;
};

} // namespace orlix::imaproc::util
