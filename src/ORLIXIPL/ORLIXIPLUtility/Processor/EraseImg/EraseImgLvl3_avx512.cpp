#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(EraseImgLvl3, avx512, eInstructionSet::eAVX512, AllButReal32)
