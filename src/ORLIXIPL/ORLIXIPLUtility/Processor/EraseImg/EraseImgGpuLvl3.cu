// Erasing on a device: the kernel, for all element types.
#include "KernelEntry.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgGpuLvl3.kernel.h"

namespace orlix::imaproc::util::gpu {

namespace {

template <class T>
__global__ void EraseImg_knl(orlix::gpu::LauncherInfo info, T value, T** out)
{
    EraseImg_thread(cuda::thisThread(), info, value, out);
}

const bool g_bEntered = cuda::enterForEachType([](auto type) {
    using T = typename decltype(type)::Type;
    cuda::enter<T>("EraseImg_knl", &EraseImg_knl<T>);
});

} // namespace

} // namespace orlix::imaproc::util::gpu
