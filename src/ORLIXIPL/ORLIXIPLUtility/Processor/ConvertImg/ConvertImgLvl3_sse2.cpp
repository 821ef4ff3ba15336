#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(ConvertImgLvl3, sse2, eInstructionSet::eSSE2, EveryBufferTypePair)
