#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl3.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/HostPixels.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(GetSlice3dImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<GetSlice3dImgLvl3, eProcessorMessage>
    g_registration(GetSlice3dImgLvl3Kernels::g_tables);

} // namespace

GetSlice3dImgLvl3::GetSlice3dImgLvl3() = default;
GetSlice3dImgLvl3::~GetSlice3dImgLvl3() = default;

processor::StepResult GetSlice3dImgLvl3::preProcess()
{
    const attr::InSubImg3d& volume = *accessAttribute<attr::InSubImg3d>();
    const image::BaseImageYStrip2d& strip = accessAttribute<attr::OutYStrip2d>()->accessStrip();
    m_in = SlicePlans<const std::byte>::of(volume.getImage());
    m_strip = {accessAttribute<attr::InAxis>()->getValue(), accessAttribute<attr::InSliceIndex>()->getValue(),
               strip.getSizeX(), strip.getStripSizeY(), strip.getStripStartOffsetY()};
    return checkHostPixels(volume);
}

} // namespace orlix::imaproc::util
