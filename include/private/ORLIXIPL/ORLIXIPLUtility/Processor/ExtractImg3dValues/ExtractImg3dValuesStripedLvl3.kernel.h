// The sets of ExtractImg3dValuesStripedLvl3: plain code alone, since points go here and there.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesStripedLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesStripedLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(ExtractImg3dValuesStripedLvl3, plain)

} // namespace orlix::imaproc::util
