#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(BuildLines2dImgLvl3, avx512, Untyped)

} // namespace orlix::imaproc::util
