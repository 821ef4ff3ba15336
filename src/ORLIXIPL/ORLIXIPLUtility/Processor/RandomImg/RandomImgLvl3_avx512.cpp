#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(RandomImgLvl3, avx512, EveryBufferType)

} // namespace orlix::imaproc::util
