#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgRule.h"

ORLIX_KERNEL_TABLE(BasicThresholdImgLvl3, plain, eInstructionSet::eNone, EveryBufferType)

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<BasicThresholdImgLvl3, eProcessorMessage> g_registration{
    &g_BasicThresholdImgLvl3_plain, &g_BasicThresholdImgLvl3_sse2, &g_BasicThresholdImgLvl3_avx2,
    &g_BasicThresholdImgLvl3_avx512};

} // namespace

processor::RulePtr BasicThresholdImgLvl3::createRule() const
{
    return matchSize(accessAttribute<attr::InYStrip2d>(), accessAttribute<attr::OutBinYStrip2d>()) &&
           matchStripBounds(accessAttribute<attr::InYStrip2d>(), accessAttribute<attr::InThresholdMin>(),
                            accessAttribute<attr::InThresholdMax>()) &&
           hasFixedType(accessAttribute<attr::OutBinYStrip2d>());
}

BasicThresholdImgLvl3::Block BasicThresholdImgLvl3::accessKernelBlock() const
{
    return {accessBlock<attr::InYStrip2d>(), accessBlock<attr::OutBinYStrip2d>(),
            toElementValue(accessAttribute<attr::InThresholdMin>()->getValue()),
            toElementValue(accessAttribute<attr::InThresholdMax>()->getValue()),
            accessAttribute<attr::OutBinYStrip2d>()->getBaseImageYStrip2d().getMemoryPlace()};
}

} // namespace orlix::imaproc::util
