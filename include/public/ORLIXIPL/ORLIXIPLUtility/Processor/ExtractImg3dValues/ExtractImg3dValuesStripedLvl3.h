// Values of the points of a strip of a volume, line by line.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesStripedLvl3.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ExtractImg3dValuesStripedLvl3 final
    : public ExtractImgValuesStripedLvl3<ExtractImg3dValuesStripedLvl3, VolumePoints>
{
public:
    static constexpr processor::ProcessorText g_text{"ExtractImg3dValuesStripedLvl3",
                                                     eProcessorMessage::eExtractImg3dValuesStripedLvl3};

    ExtractImg3dValuesStripedLvl3();
    ~ExtractImg3dValuesStripedLvl3() override;
};

} // namespace orlix::imaproc::util
