#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(ConvertImgLvl3, sse2, EveryBufferTypePair)

} // namespace orlix::imaproc::util
