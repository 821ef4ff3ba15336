#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(CopyImgLvl3, avx2, AllButReal32)

} // namespace orlix::imaproc::util
