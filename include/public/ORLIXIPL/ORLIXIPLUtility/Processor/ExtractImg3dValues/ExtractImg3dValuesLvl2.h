// Values at points of one volume: hands tiles or strips to the level below, whichever the method says.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesStripedLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesTiledLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesLvl2.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ExtractImg3dValuesLvl2 final
    : public ExtractImgValuesLvl2<ExtractImg3dValuesLvl2, VolumePoints, ExtractImg3dValuesTiledLvl3,
                                  ExtractImg3dValuesStripedLvl3>
{
public:
    static constexpr processor::ProcessorText g_text{"ExtractImg3dValuesLvl2",
                                                     eProcessorMessage::eExtractImg3dValuesLvl2};

    ExtractImg3dValuesLvl2();
    ~ExtractImg3dValuesLvl2() override;
};

} // namespace orlix::imaproc::util
