#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(BasicThresholdImgLvl3, avx2, eInstructionSet::eAVX2, EveryBufferType)
