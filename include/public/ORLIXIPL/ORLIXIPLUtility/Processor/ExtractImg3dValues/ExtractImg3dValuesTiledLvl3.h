// Values of a group of points of a volume, each from the tile around it.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesTiledLvl3.h"

namespace orlix::imaproc::util {

class ORLIXIPLUTILITY_API ExtractImg3dValuesTiledLvl3 final
    : public ExtractImgValuesTiledLvl3<ExtractImg3dValuesTiledLvl3, VolumePoints>
{
public:
    static constexpr processor::ProcessorText g_text{"ExtractImg3dValuesTiledLvl3",
                                                     eProcessorMessage::eExtractImg3dValuesTiledLvl3};

    ExtractImg3dValuesTiledLvl3();
    ~ExtractImg3dValuesTiledLvl3() override;
};

} // namespace orlix::imaproc::util
