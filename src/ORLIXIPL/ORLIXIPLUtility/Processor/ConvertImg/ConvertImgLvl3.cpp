#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(ConvertImgLvl3, plain, EveryBufferTypePair)

namespace {

const processor::ProcessorRegistration<ConvertImgLvl3, eProcessorMessage>
    g_registration(ConvertImgLvl3Kernels::g_tables);

} // namespace

ConvertImgLvl3::ConvertImgLvl3() = default;
ConvertImgLvl3::~ConvertImgLvl3() = default;

processor::StepResult ConvertImgLvl3::preProcess()
{
    m_bBinary = accessAttribute<attr::OutYStrip2d>()->getImageBufferType() == image::eImageBufferType::eBufferBinary;
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
