// Converting on a device: the kernel, for all element types.
#include "KernelEntry.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgGpuLvl3.kernel.h"

namespace orlix::imaproc::util::gpu {

namespace {

template <class TIn, class TOut>
__global__ void ConvertImg_knl(orlix::gpu::LauncherInfo info, bool bBinary, const TIn** in, TOut** out)
{
    ConvertImg_thread(cuda::thisThread(), info, bBinary, in, out);
}

template <class TIn>
void enterRow()
{
    cuda::enterForEachType([](auto type) {
        using TOut = typename decltype(type)::Type;
        cuda::enter<TIn, TOut>("ConvertImg_knl", &ConvertImg_knl<TIn, TOut>);
    });
}

const bool g_bEntered = cuda::enterForEachType([](auto type) { enterRow<typename decltype(type)::Type>(); });

} // namespace

} // namespace orlix::imaproc::util::gpu
