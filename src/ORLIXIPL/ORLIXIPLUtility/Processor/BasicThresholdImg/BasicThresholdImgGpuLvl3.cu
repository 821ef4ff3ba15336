// Thresholding on a device: the kernel, for all element types.
#include "KernelEntry.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgGpuLvl3.kernel.h"

namespace orlix::imaproc::util::gpu {

namespace {

template <class T>
__global__ void BasicThresholdImg_knl(orlix::gpu::LauncherInfo info, const T** in, T min, T max, unsigned char** out)
{
    BasicThresholdImg_thread(cuda::thisThread(), info, in, min, max, out);
}

const bool g_bEntered = cuda::enterForEachType([](auto type) {
    using T = typename decltype(type)::Type;
    cuda::enter<T>("BasicThresholdImg_knl", &BasicThresholdImg_knl<T>);
});

} // namespace

} // namespace orlix::imaproc::util::gpu
