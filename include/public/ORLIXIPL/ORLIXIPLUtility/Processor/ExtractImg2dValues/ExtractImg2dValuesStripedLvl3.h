// Values of the points of a strip of a plan, line by line.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesStripedLvl3.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ExtractImg2dValuesStripedLvl3 final
    : public ExtractImgValuesStripedLvl3<ExtractImg2dValuesStripedLvl3, PlanPoints>
{
public:
    static constexpr processor::ProcessorText g_text{"ExtractImg2dValuesStripedLvl3",
                                                     eProcessorMessage::eExtractImg2dValuesStripedLvl3};

    ExtractImg2dValuesStripedLvl3();
    ~ExtractImg2dValuesStripedLvl3() override;
};

} // namespace orlix::imaproc::util
