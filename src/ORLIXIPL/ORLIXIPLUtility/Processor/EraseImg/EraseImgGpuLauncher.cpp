// Erasing on a device: the launchers of the kernel.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgGpuLvl3.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuKernelName.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"

namespace orlix::imaproc::util::gpu {

template <class T>
CudaResult EraseImg_knlLauncher(const LauncherInfo* info, T value, T** out)
{
    static const std::string g_name = kernelName<T>("EraseImg_knl");
    LauncherInfo ownInfo = *info;
    void* const arguments[] = {&ownInfo, &value, &out};
    const auto runThread = [](const orlix::gpu::ThreadPlace& place, void* const* values) {
        EraseImg_thread<T>(place, details::argument<LauncherInfo>(values, 0), details::argument<T>(values, 1),
                           details::argument<T**>(values, 2));
    };
    return details::launchAndWait(ownInfo, g_name.c_str(), arguments, runThread);
}

template ORLIXIPLUTILITY_API CudaResult EraseImg_knlLauncher(const LauncherInfo*, signed char, signed char**);
template ORLIXIPLUTILITY_API CudaResult EraseImg_knlLauncher(const LauncherInfo*, unsigned char, unsigned char**);
template ORLIXIPLUTILITY_API CudaResult EraseImg_knlLauncher(const LauncherInfo*, short, short**);
template ORLIXIPLUTILITY_API CudaResult EraseImg_knlLauncher(const LauncherInfo*, unsigned short, unsigned short**);
template ORLIXIPLUTILITY_API CudaResult EraseImg_knlLauncher(const LauncherInfo*, int, int**);
template ORLIXIPLUTILITY_API CudaResult EraseImg_knlLauncher(const LauncherInfo*, unsigned int, unsigned int**);
template ORLIXIPLUTILITY_API CudaResult EraseImg_knlLauncher(const LauncherInfo*, float, float**);

} // namespace orlix::imaproc::util::gpu
