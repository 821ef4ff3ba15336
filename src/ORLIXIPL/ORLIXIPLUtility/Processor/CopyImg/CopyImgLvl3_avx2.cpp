#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(CopyImgLvl3, avx2, eInstructionSet::eAVX2, AllButReal32)
