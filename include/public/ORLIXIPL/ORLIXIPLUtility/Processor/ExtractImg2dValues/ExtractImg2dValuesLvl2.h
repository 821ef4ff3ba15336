// Values at points of one plan: hands tiles or strips to the level below, whichever the method says.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesStripedLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesTiledLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesLvl2.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ExtractImg2dValuesLvl2 final
    : public ExtractImgValuesLvl2<ExtractImg2dValuesLvl2, PlanPoints, ExtractImg2dValuesTiledLvl3,
                                  ExtractImg2dValuesStripedLvl3>
{
public:
    static constexpr processor::ProcessorText g_text{"ExtractImg2dValuesLvl2",
                                                     eProcessorMessage::eExtractImg2dValuesLvl2};

    ExtractImg2dValuesLvl2();
    ~ExtractImg2dValuesLvl2() override;
};

} // namespace orlix::imaproc::util
