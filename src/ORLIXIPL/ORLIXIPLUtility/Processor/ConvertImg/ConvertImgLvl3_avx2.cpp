#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(ConvertImgLvl3, avx2, eInstructionSet::eAVX2, EveryBufferTypePair)
