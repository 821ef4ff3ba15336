// Lines into a volume: hands its strips to BuildLines3dImgLvl3.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl3.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API BuildLines3dImgLvl2 final
    : public StripLevel<BuildLines3dImgLvl2, UtilityLibrary, BuildLines3dImgLvl3, SameForStrips<attr::InTheta>,
                        SameForStrips<attr::InPhi>, SameForStrips<attr::InAlpha>, SameForStrips<attr::InOffset>,
                        ByZStrip<attr::OutSubBinImg3d, attr::OutBinZStrip3d>>
{
public:
    static constexpr processor::ProcessorText g_text{"BuildLines3dImgLvl2", eProcessorMessage::eBuildLines3dImgLvl2};
    static constexpr unsigned g_dispatchWeight = 16; // two divisions for every pixel

    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;

    BuildLines3dImgLvl2();
    ~BuildLines3dImgLvl2() override;
};

} // namespace orlix::imaproc::util
