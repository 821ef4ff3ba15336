#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(CompareImgLvl3, avx512, eInstructionSet::eAVX512, EveryBufferType)
