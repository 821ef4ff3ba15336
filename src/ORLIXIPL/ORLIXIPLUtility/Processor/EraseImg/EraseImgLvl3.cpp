#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(EraseImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<EraseImgLvl3, eProcessorMessage> g_registration(EraseImgLvl3Kernels::g_tables);

} // namespace

EraseImgLvl3::EraseImgLvl3() = default;
EraseImgLvl3::~EraseImgLvl3() = default;

processor::StepResult EraseImgLvl3::preProcess()
{
    m_value = toElementValue(accessAttribute<attr::InOptEraseValue>()->getValue());
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
