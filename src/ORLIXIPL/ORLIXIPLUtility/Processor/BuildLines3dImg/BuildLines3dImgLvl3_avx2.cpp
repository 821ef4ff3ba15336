#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(BuildLines3dImgLvl3, avx2, Untyped)

} // namespace orlix::imaproc::util
