#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(PutSlice3dImgLvl3, avx, OnlyReal32)

} // namespace orlix::imaproc::util
