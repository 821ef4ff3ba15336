#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(CopyImgLvl3, avx, eInstructionSet::eAVX, OnlyReal32)
