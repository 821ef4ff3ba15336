#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(ConvertImgLvl3, avx512, EveryBufferTypePair)

} // namespace orlix::imaproc::util
