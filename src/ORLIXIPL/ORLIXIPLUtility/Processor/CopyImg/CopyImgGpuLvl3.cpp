#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgGpuLvl3.h"

#include "ORLIX/ORLIXBaseProcessing/GpuProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"
#include "ORLIXIPL/ORLIXImageProcessing/GpuRows.h"

namespace orlix::imaproc::util {

template <class T>
ProcessingResult<bool> CopyImgGpuLvl3::genericKernelLauncher()
{
    const FreedTable in(extractTable<attr::InSubGpuImg, T>());
    const FreedTable out(extractTable<attr::OutImg, T>());
    const gpu::LauncherInfo info = makeInfo<attr::InSubGpuImg>();
    return resultOf(gpu::CopyImg_knlLauncher<T>(&info, in.get(), out.get()));
}

namespace {

const processor::GpuProcessorRegistration<CopyImgGpuLvl3, eProcessorMessage> g_registration(g_gpuRows<CopyImgGpuLvl3>);

} // namespace

CopyImgGpuLvl3::CopyImgGpuLvl3() = default;
CopyImgGpuLvl3::~CopyImgGpuLvl3() = default;

} // namespace orlix::imaproc::util
