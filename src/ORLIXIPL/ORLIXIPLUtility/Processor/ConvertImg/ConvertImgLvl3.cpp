#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.kernel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

ORLIX_KERNEL_TABLE(ConvertImgLvl3, plain, eInstructionSet::eNone, EveryBufferTypePair)

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ConvertImgLvl3, eProcessorMessage> g_registration{
    &g_ConvertImgLvl3_plain, &g_ConvertImgLvl3_sse2, &g_ConvertImgLvl3_avx2, &g_ConvertImgLvl3_avx512};

} // namespace

processor::RulePtr ConvertImgLvl3::createRule() const
{
    return matchSize(accessAttribute<attr::InYStrip2d>(), accessAttribute<attr::OutYStrip2d>());
}

ConvertImgLvl3::Block ConvertImgLvl3::accessKernelBlock() const
{
    const image::BaseImageYStrip2d& out = accessAttribute<attr::OutYStrip2d>()->getBaseImageYStrip2d();
    return {accessBlock<attr::InYStrip2d>(), accessBlock<attr::OutYStrip2d>(),
            out.getImageBufferType() == image::eImageBufferType::eBufferBinary, out.getMemoryPlace()};
}

} // namespace orlix::imaproc::util
