#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(PutROI3dImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<PutROI3dImgLvl3, eProcessorMessage>
    g_registration(PutROI3dImgLvl3Kernels::g_tables);

} // namespace

PutROI3dImgLvl3::PutROI3dImgLvl3() = default;
PutROI3dImgLvl3::~PutROI3dImgLvl3() = default;

processor::StepResult PutROI3dImgLvl3::preProcess()
{
    const attr::Img3dOffset& offset = accessAttribute<attr::InInputImg3dOffset>()->getDataItemNode();
    const InputRows input = inputRows(*accessAttribute<attr::InZStrip3d>());
    const OutputRows output = outputRows(*accessAttribute<attr::InOutZStrip3d>());
    const ProcessingResult<bool> result = m_box.init(input, {0, 0}, output, {offset.X, offset.Y}, input.size);
    return result ? processor::StepResult::success() : processor::StepResult::failed(result.getMessage());
}

} // namespace orlix::imaproc::util
