#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(GaussianRandomImgLvl3, sse2, EveryBufferType)

} // namespace orlix::imaproc::util
