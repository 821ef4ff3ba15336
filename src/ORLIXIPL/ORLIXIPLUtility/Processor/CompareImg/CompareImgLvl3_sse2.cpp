#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(CompareImgLvl3, sse2, eInstructionSet::eSSE2, EveryBufferType)
