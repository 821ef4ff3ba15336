// Copying on a device: the launchers of the kernel.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgGpuLvl3.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuKernelName.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"

namespace orlix::imaproc::util::gpu {

template <class T>
CudaResult CopyImg_knlLauncher(const LauncherInfo* info, const T** in, T** out)
{
    static const std::string g_name = kernelName<T>("CopyImg_knl");
    LauncherInfo ownInfo = *info;
    void* const arguments[] = {&ownInfo, &in, &out};
    const auto runThread = [](const orlix::gpu::ThreadPlace& place, void* const* values) {
        CopyImg_thread<T>(place, details::argument<LauncherInfo>(values, 0), details::argument<const T**>(values, 1),
                          details::argument<T**>(values, 2));
    };
    return details::launchAndWait(ownInfo, g_name.c_str(), arguments, runThread);
}

template ORLIXIPLUTILITY_API CudaResult CopyImg_knlLauncher(const LauncherInfo*, const signed char**, signed char**);
template ORLIXIPLUTILITY_API CudaResult CopyImg_knlLauncher(const LauncherInfo*, const unsigned char**,
                                                            unsigned char**);
template ORLIXIPLUTILITY_API CudaResult CopyImg_knlLauncher(const LauncherInfo*, const short**, short**);
template ORLIXIPLUTILITY_API CudaResult CopyImg_knlLauncher(const LauncherInfo*, const unsigned short**,
                                                            unsigned short**);
template ORLIXIPLUTILITY_API CudaResult CopyImg_knlLauncher(const LauncherInfo*, const int**, int**);
template ORLIXIPLUTILITY_API CudaResult CopyImg_knlLauncher(const LauncherInfo*, const unsigned int**, unsigned int**);
template ORLIXIPLUTILITY_API CudaResult CopyImg_knlLauncher(const LauncherInfo*, const float**, float**);

} // namespace orlix::imaproc::util::gpu
