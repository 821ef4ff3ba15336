#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(PutROI2dImgLvl3, avx, OnlyReal32)

} // namespace orlix::imaproc::util
