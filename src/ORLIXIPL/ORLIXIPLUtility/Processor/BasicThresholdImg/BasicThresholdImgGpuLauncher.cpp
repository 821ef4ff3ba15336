// Thresholding on a device: the launchers of the kernel.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgGpuLvl3.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuKernelName.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"

namespace orlix::imaproc::util::gpu {

template <class T>
CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo* info, const T** in, T min, T max, unsigned char** out)
{
    static const std::string g_name = kernelName<T>("BasicThresholdImg_knl");
    LauncherInfo ownInfo = *info;
    void* const arguments[] = {&ownInfo, &in, &min, &max, &out};
    const auto runThread = [](const orlix::gpu::ThreadPlace& place, void* const* values) {
        BasicThresholdImg_thread<T>(place, details::argument<LauncherInfo>(values, 0),
                                    details::argument<const T**>(values, 1), details::argument<T>(values, 2),
                                    details::argument<T>(values, 3), details::argument<unsigned char**>(values, 4));
    };
    return details::launchAndWait(ownInfo, g_name.c_str(), arguments, runThread);
}

template ORLIXIPLUTILITY_API CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo*, const signed char**,
                                                                      signed char, signed char, unsigned char**);
template ORLIXIPLUTILITY_API CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo*, const unsigned char**,
                                                                      unsigned char, unsigned char, unsigned char**);
template ORLIXIPLUTILITY_API CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo*, const short**, short, short,
                                                                      unsigned char**);
template ORLIXIPLUTILITY_API CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo*, const unsigned short**,
                                                                      unsigned short, unsigned short, unsigned char**);
template ORLIXIPLUTILITY_API CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo*, const int**, int, int,
                                                                      unsigned char**);
template ORLIXIPLUTILITY_API CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo*, const unsigned int**,
                                                                      unsigned int, unsigned int, unsigned char**);
template ORLIXIPLUTILITY_API CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo*, const float**, float, float,
                                                                      unsigned char**);

} // namespace orlix::imaproc::util::gpu
