#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(EraseImgLvl3, sse2, EveryBufferType)

} // namespace orlix::imaproc::util
