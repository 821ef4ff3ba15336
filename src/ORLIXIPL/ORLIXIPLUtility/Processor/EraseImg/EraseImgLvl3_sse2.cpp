#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(EraseImgLvl3, sse2, eInstructionSet::eSSE2, EveryBufferType)
