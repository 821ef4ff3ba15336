// The sets of ExtractImg3dValuesTiledLvl3: plain code alone, since points go here and there.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesTiledLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesTiledLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(ExtractImg3dValuesTiledLvl3, plain)

} // namespace orlix::imaproc::util
