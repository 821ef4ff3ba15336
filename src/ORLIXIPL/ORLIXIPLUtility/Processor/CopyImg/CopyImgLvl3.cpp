#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl3.kernel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

ORLIX_KERNEL_TABLE(CopyImgLvl3, plain, eInstructionSet::eNone, EveryBufferType)

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<CopyImgLvl3, eProcessorMessage> g_registration{
    &g_CopyImgLvl3_plain, &g_CopyImgLvl3_sse2, &g_CopyImgLvl3_avx, &g_CopyImgLvl3_avx2, &g_CopyImgLvl3_avx512};

} // namespace

processor::RulePtr CopyImgLvl3::createRule() const
{
    return matchSizeAndType(accessAttribute<attr::InYStrip2d>(), accessAttribute<attr::OutYStrip2d>());
}

CopyImgLvl3::Block CopyImgLvl3::accessKernelBlock() const
{
    return {accessBlock<attr::InYStrip2d>(), accessBlock<attr::OutYStrip2d>(),
            accessAttribute<attr::OutYStrip2d>()->getBaseImageYStrip2d().getMemoryPlace()};
}

} // namespace orlix::imaproc::util
