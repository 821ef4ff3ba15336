#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.kernel.h"

ORLIX_KERNEL_TABLE(EraseImgLvl3, plain, eInstructionSet::eNone, EveryBufferType)

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<EraseImgLvl3, eProcessorMessage> g_registration{
    &g_EraseImgLvl3_plain, &g_EraseImgLvl3_sse2, &g_EraseImgLvl3_avx, &g_EraseImgLvl3_avx2, &g_EraseImgLvl3_avx512};

} // namespace

EraseImgLvl3::Block EraseImgLvl3::accessKernelBlock() const
{
    return {accessBlock<attr::OutYStrip2d>(), toElementValue(accessAttribute<attr::InOptEraseValue>()->getValue()),
            accessAttribute<attr::OutYStrip2d>()->getBaseImageYStrip2d().getMemoryPlace()};
}

} // namespace orlix::imaproc::util
