#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI2dImg/GetROI2dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(GetROI2dImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<GetROI2dImgLvl3, eProcessorMessage>
    g_registration(GetROI2dImgLvl3Kernels::g_tables);

} // namespace

GetROI2dImgLvl3::GetROI2dImgLvl3() = default;
GetROI2dImgLvl3::~GetROI2dImgLvl3() = default;

processor::StepResult GetROI2dImgLvl3::preProcess()
{
    const attr::Img2dOffset& offset = accessAttribute<attr::InInputImg2dOffset>()->getDataItemNode();
    const attr::Img2dSize& size = accessAttribute<attr::InOutputImg2dSize>()->getDataItemNode();
    const InputRows input = inputRows(*accessAttribute<attr::InYStrip2d>());
    const OutputRows output = outputRows(*accessAttribute<attr::OutYStrip2d>());
    const ProcessingResult<bool> result = m_box.init(input, {offset.X, 0}, output, {0, 0}, {size.X, input.size.y, 1});
    return result ? processor::StepResult::success() : processor::StepResult::failed(result.getMessage());
}

} // namespace orlix::imaproc::util
