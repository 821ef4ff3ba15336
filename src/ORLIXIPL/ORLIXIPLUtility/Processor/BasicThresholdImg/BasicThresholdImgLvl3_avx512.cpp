#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(BasicThresholdImgLvl3, avx512, EveryBufferType)

} // namespace orlix::imaproc::util
