#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetROI3dImg/GetROI3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(GetROI3dImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<GetROI3dImgLvl3, eProcessorMessage>
    g_registration(GetROI3dImgLvl3Kernels::g_tables);

} // namespace

GetROI3dImgLvl3::GetROI3dImgLvl3() = default;
GetROI3dImgLvl3::~GetROI3dImgLvl3() = default;

processor::StepResult GetROI3dImgLvl3::preProcess()
{
    const attr::Img3dOffset& offset = accessAttribute<attr::InInputImg3dOffset>()->getDataItemNode();
    const attr::Img3dSize& size = accessAttribute<attr::InOutputImg3dSize>()->getDataItemNode();
    const InputRows input = inputRows(*accessAttribute<attr::InZStrip3d>());
    const OutputRows output = outputRows(*accessAttribute<attr::OutZStrip3d>());
    const ProcessingResult<bool> result =
        m_box.init(input, {offset.X, offset.Y}, output, {0, 0}, {size.X, size.Y, input.size.z});
    return result ? processor::StepResult::success() : processor::StepResult::failed(result.getMessage());
}

} // namespace orlix::imaproc::util
