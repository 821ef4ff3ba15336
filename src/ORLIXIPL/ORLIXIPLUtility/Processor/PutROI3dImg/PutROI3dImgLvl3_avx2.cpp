#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(PutROI3dImgLvl3, avx2, AllButReal32)

} // namespace orlix::imaproc::util
