#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgGpuLvl3.h"

#include "ORLIX/ORLIXBaseProcessing/GpuProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"
#include "ORLIXIPL/ORLIXImageProcessing/GpuRows.h"

namespace orlix::imaproc::util {

template <class T>
ProcessingResult<bool> EraseImgGpuLvl3::genericKernelLauncher()
{
    T** const out = extractTable<attr::OutImg, T>(); // stays, as long as the image
    const gpu::LauncherInfo info = makeInfo<attr::OutImg>();
    const T value = toElementValue(accessAttribute<attr::InOptEraseValue>()->getValue()).template as<T>();
    return resultOf(gpu::EraseImg_knlLauncher<T>(&info, value, out));
}

namespace {

const processor::GpuProcessorRegistration<EraseImgGpuLvl3, eProcessorMessage>
    g_registration(g_gpuRows<EraseImgGpuLvl3>);

} // namespace

EraseImgGpuLvl3::EraseImgGpuLvl3() = default;
EraseImgGpuLvl3::~EraseImgGpuLvl3() = default;

} // namespace orlix::imaproc::util
