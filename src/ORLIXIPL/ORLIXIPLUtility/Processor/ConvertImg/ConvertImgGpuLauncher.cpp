// Converting on a device: the launchers of the kernel.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgGpuLvl3.kernel.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuKernelName.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"

namespace orlix::imaproc::util::gpu {

template <class TIn, class TOut>
CudaResult ConvertImg_knlLauncher(const LauncherInfo* info, bool bBinary, const TIn** in, TOut** out)
{
    static const std::string g_name = kernelName<TIn, TOut>("ConvertImg_knl");
    LauncherInfo ownInfo = *info;
    void* const arguments[] = {&ownInfo, &bBinary, &in, &out};
    const auto runThread = [](const orlix::gpu::ThreadPlace& place, void* const* values) {
        ConvertImg_thread<TIn, TOut>(place, details::argument<LauncherInfo>(values, 0),
                                     details::argument<bool>(values, 1), details::argument<const TIn**>(values, 2),
                                     details::argument<TOut**>(values, 3));
    };
    return details::launchAndWait(ownInfo, g_name.c_str(), arguments, runThread);
}

template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const signed char**,
                                                               signed char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const signed char**,
                                                               unsigned char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const signed char**, short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const signed char**,
                                                               unsigned short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const signed char**, int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const signed char**,
                                                               unsigned int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const signed char**, float**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned char**,
                                                               signed char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned char**,
                                                               unsigned char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned char**,
                                                               short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned char**,
                                                               unsigned short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned char**, int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned char**,
                                                               unsigned int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned char**,
                                                               float**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const short**, signed char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const short**,
                                                               unsigned char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const short**, short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const short**,
                                                               unsigned short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const short**, int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const short**,
                                                               unsigned int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const short**, float**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned short**,
                                                               signed char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned short**,
                                                               unsigned char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned short**,
                                                               short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned short**,
                                                               unsigned short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned short**,
                                                               int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned short**,
                                                               unsigned int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned short**,
                                                               float**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const int**, signed char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const int**, unsigned char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const int**, short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const int**,
                                                               unsigned short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const int**, int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const int**, unsigned int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const int**, float**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned int**,
                                                               signed char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned int**,
                                                               unsigned char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned int**,
                                                               short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned int**,
                                                               unsigned short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned int**, int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned int**,
                                                               unsigned int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const unsigned int**,
                                                               float**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const float**, signed char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const float**,
                                                               unsigned char**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const float**, short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const float**,
                                                               unsigned short**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const float**, int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const float**,
                                                               unsigned int**);
template ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo*, bool, const float**, float**);

} // namespace orlix::imaproc::util::gpu
