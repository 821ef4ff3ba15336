#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(BasicThresholdImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<BasicThresholdImgLvl3, eProcessorMessage>
    g_registration(BasicThresholdImgLvl3Kernels::g_tables);

} // namespace

BasicThresholdImgLvl3::BasicThresholdImgLvl3() = default;
BasicThresholdImgLvl3::~BasicThresholdImgLvl3() = default;

processor::StepResult BasicThresholdImgLvl3::preProcess()
{
    m_low = toElementValue(accessAttribute<attr::InThresholdMin>()->getValue());
    m_high = toElementValue(accessAttribute<attr::InThresholdMax>()->getValue());
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
