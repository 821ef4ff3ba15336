#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgGpuLvl3.h"

#include "ORLIX/ORLIXBaseProcessing/GpuProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"
#include "ORLIXIPL/ORLIXImageProcessing/GpuRows.h"

namespace orlix::imaproc::util {

template <class TIn, class TOut>
ProcessingResult<bool> ConvertImgGpuLvl3::genericKernelLauncher()
{
    const FreedTable in(extractTable<attr::InSubGpuImg, TIn>());
    const FreedTable out(extractTable<attr::OutImg, TOut>());
    const gpu::LauncherInfo info = makeInfo<attr::InSubGpuImg>();
    const bool bBinary =
        accessAttribute<attr::OutImg>()->getImage().getBufferType() == image::eImageBufferType::eBufferBinary;
    return resultOf(gpu::ConvertImg_knlLauncher<TIn, TOut>(&info, bBinary, in.get(), out.get()));
}

namespace {

const processor::GpuProcessorRegistration<ConvertImgGpuLvl3, eProcessorMessage>
    g_registration(g_gpuPairRows<ConvertImgGpuLvl3>);

} // namespace

ConvertImgGpuLvl3::ConvertImgGpuLvl3() = default;
ConvertImgGpuLvl3::~ConvertImgGpuLvl3() = default;

} // namespace orlix::imaproc::util
