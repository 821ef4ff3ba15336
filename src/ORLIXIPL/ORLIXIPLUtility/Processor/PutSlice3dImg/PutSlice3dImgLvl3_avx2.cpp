#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(PutSlice3dImgLvl3, avx2, EveryBufferType)

} // namespace orlix::imaproc::util
