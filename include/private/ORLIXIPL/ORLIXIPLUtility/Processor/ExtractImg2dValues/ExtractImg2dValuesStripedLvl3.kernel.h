// The sets of ExtractImg2dValuesStripedLvl3: plain code alone, since points go here and there.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesStripedLvl3.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/ExtractImgValuesStripedLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_SETS(ExtractImg2dValuesStripedLvl3, plain)

} // namespace orlix::imaproc::util
