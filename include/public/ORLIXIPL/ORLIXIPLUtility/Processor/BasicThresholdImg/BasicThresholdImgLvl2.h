// Grey plan to binary plan: hands its strips to BasicThresholdImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API BasicThresholdImgLvl2 final
    : public StripLevel<BasicThresholdImgLvl2, UtilityLibrary, BasicThresholdImgLvl3,
                        ByYStrip<attr::InSubImg2d, attr::InYStrip2d>, SameForStrips<attr::InThresholdMin>,
                        SameForStrips<attr::InThresholdMax>, ByYStrip<attr::OutBinImg, attr::OutBinYStrip2d>>
{
public:
    static constexpr processor::ProcessorText g_text{"BasicThresholdImgLvl2",
                                                     eProcessorMessage::eBasicThresholdImgLvl2};

    using Rule = BasicThresholdImgRule<attr::InSubImg2d, attr::OutBinImg>;
    using Initializers = processor::AllOutputsGiven;

    BasicThresholdImgLvl2();
    ~BasicThresholdImgLvl2() override;
};

} // namespace orlix::imaproc::util
