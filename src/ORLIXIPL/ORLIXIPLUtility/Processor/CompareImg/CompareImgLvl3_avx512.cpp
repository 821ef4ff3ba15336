#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(CompareImgLvl3, avx512, EveryBufferType)

} // namespace orlix::imaproc::util
