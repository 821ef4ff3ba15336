#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(CopyImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<CopyImgLvl3, eProcessorMessage> g_registration(CopyImgLvl3Kernels::g_tables);

} // namespace

CopyImgLvl3::CopyImgLvl3() = default;
CopyImgLvl3::~CopyImgLvl3() = default;

} // namespace orlix::imaproc::util
