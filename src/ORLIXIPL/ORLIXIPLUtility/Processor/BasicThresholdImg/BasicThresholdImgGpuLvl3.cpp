#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgGpuLvl3.h"

#include "ORLIX/ORLIXBaseProcessing/GpuProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"
#include "ORLIXIPL/ORLIXImageProcessing/GpuRows.h"

namespace orlix::imaproc::util {

template <class T>
ProcessingResult<bool> BasicThresholdImgGpuLvl3::genericKernelLauncher()
{
    const T** const in = extractTable<attr::InSubGpuImg, T>(); // both stay, as long as their images
    unsigned char** const out = extractTable<attr::OutBinImg, unsigned char>();
    const gpu::LauncherInfo info = makeInfo<attr::InSubGpuImg>();
    const T min = toElementValue(accessAttribute<attr::InThresholdMin>()->getValue()).template as<T>();
    const T max = toElementValue(accessAttribute<attr::InThresholdMax>()->getValue()).template as<T>();
    return resultOf(gpu::BasicThresholdImg_knlLauncher<T>(&info, in, min, max, out));
}

namespace {

const processor::GpuProcessorRegistration<BasicThresholdImgGpuLvl3, eProcessorMessage>
    g_registration(g_gpuRows<BasicThresholdImgGpuLvl3>);

} // namespace

BasicThresholdImgGpuLvl3::BasicThresholdImgGpuLvl3() = default;
BasicThresholdImgGpuLvl3::~BasicThresholdImgGpuLvl3() = default;

} // namespace orlix::imaproc::util
