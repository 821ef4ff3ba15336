// Values of a group of points of a plan, each from the tile around it.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesTiledLvl3.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ExtractImg2dValuesTiledLvl3 final
    : public ExtractImgValuesTiledLvl3<ExtractImg2dValuesTiledLvl3, PlanPoints>
{
public:
    static constexpr processor::ProcessorText g_text{"ExtractImg2dValuesTiledLvl3",
                                                     eProcessorMessage::eExtractImg2dValuesTiledLvl3};

    ExtractImg2dValuesTiledLvl3();
    ~ExtractImg2dValuesTiledLvl3() override;
};

} // namespace orlix::imaproc::util
