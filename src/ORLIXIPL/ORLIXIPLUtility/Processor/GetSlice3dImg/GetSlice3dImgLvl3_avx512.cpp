#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_EMPTY_KERNEL_TABLE(GetSlice3dImgLvl3, avx512) // plain copies of rows and elements gain nothing from the set

} // namespace orlix::imaproc::util
