#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(GetROI3dImgLvl3, avx512, EveryBufferType)

} // namespace orlix::imaproc::util
