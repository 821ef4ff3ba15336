#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(EraseImgLvl3, avx2, AllButReal32)

} // namespace orlix::imaproc::util
