#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(BasicThresholdImgLvl3, sse2, eInstructionSet::eSSE2, EveryBufferType)
