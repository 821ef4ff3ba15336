#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(CopyImgLvl3, sse2, eInstructionSet::eSSE2, EveryBufferType)
