#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(GetROI2dImgLvl3, sse2, EveryBufferType)

} // namespace orlix::imaproc::util
