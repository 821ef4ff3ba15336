#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(RandomImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<RandomImgLvl3, eProcessorMessage> g_registration(RandomImgLvl3Kernels::g_tables);

} // namespace

RandomImgLvl3::RandomImgLvl3() = default;
RandomImgLvl3::~RandomImgLvl3() = default;

processor::StepResult RandomImgLvl3::preProcess()
{
    const attr::Range& range = accessAttribute<attr::InOutputRange>()->getDataItemNode();
    m_min = toElementValue(range.get<attr::Range::Min>());
    m_max = toElementValue(range.get<attr::Range::Max>());
    return RandomKernelLevel::preProcess();
}

} // namespace orlix::imaproc::util
