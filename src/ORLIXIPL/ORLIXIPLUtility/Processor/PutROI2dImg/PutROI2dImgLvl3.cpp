#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(PutROI2dImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<PutROI2dImgLvl3, eProcessorMessage>
    g_registration(PutROI2dImgLvl3Kernels::g_tables);

} // namespace

PutROI2dImgLvl3::PutROI2dImgLvl3() = default;
PutROI2dImgLvl3::~PutROI2dImgLvl3() = default;

processor::StepResult PutROI2dImgLvl3::preProcess()
{
    const attr::Img2dOffset& offset = accessAttribute<attr::InInputImg2dOffset>()->getDataItemNode();
    const InputRows input = inputRows(*accessAttribute<attr::InYStrip2d>());
    const OutputRows output = outputRows(*accessAttribute<attr::OutYStrip2d>());
    const ProcessingResult<bool> result = m_box.init(input, {0, 0}, output, {offset.X, 0}, input.size);
    return result ? processor::StepResult::success() : processor::StepResult::failed(result.getMessage());
}

} // namespace orlix::imaproc::util
