#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(ConvertImgLvl3, avx512, eInstructionSet::eAVX512, EveryBufferTypePair)
