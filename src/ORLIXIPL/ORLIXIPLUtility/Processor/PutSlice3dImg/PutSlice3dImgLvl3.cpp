#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/HostPixels.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(PutSlice3dImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<PutSlice3dImgLvl3, eProcessorMessage>
    g_registration(PutSlice3dImgLvl3Kernels::g_tables);

} // namespace

PutSlice3dImgLvl3::PutSlice3dImgLvl3() = default;
PutSlice3dImgLvl3::~PutSlice3dImgLvl3() = default;

processor::StepResult PutSlice3dImgLvl3::preProcess()
{
    const attr::OutImg& volume = *accessAttribute<attr::OutImg>();
    const image::BaseImageYStrip2d& strip = accessAttribute<attr::InYStrip2d>()->accessStrip();
    m_out = SlicePlans<std::byte>::of(volume.getImage());
    m_strip = {accessAttribute<attr::InAxis>()->getValue(), accessAttribute<attr::InSliceIndex>()->getValue(),
               strip.getSizeX(), strip.getStripSizeY(), strip.getStripStartOffsetY()};
    return checkHostPixels(volume);
}

} // namespace orlix::imaproc::util
