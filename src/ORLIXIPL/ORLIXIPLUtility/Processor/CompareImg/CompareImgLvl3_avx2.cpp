#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(CompareImgLvl3, avx2, eInstructionSet::eAVX2, EveryBufferType)
