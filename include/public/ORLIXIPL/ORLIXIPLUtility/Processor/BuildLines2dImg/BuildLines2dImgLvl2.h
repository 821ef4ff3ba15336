// Lines into a plan: hands its strips to BuildLines2dImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API BuildLines2dImgLvl2 final
    : public StripLevel<BuildLines2dImgLvl2, UtilityLibrary, BuildLines2dImgLvl3, SameForStrips<attr::InTheta>,
                        SameForStrips<attr::InOffset>, ByYStrip<attr::OutBinImg, attr::OutBinYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"BuildLines2dImgLvl2", eProcessorMessage::eBuildLines2dImgLvl2};
    static constexpr unsigned g_dispatchWeight = 8; // a division for every pixel

    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;

    BuildLines2dImgLvl2();
    ~BuildLines2dImgLvl2() override;
};

} // namespace orlix::imaproc::util
