// Copying on a device: the kernel, for all element types.
#include "KernelEntry.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgGpuLvl3.kernel.h"

namespace orlix::imaproc::util::gpu {

namespace {

template <class T>
__global__ void CopyImg_knl(orlix::gpu::LauncherInfo info, const T** in, T** out)
{
    CopyImg_thread(cuda::thisThread(), info, in, out);
}

const bool g_bEntered = cuda::enterForEachType([](auto type) {
    using T = typename decltype(type)::Type;
    cuda::enter<T>("CopyImg_knl", &CopyImg_knl<T>);
});

} // namespace

} // namespace orlix::imaproc::util::gpu
