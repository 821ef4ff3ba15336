// What all launchers have in common.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuLaunchers.h"

namespace orlix::imaproc::util::gpu {

namespace {

constexpr unsigned int g_tooMany = ~0U; // no device has such a grid

unsigned int nbBlocks(unsigned long size, unsigned int side)
{
    const unsigned long nb = size / side + (size % side != 0 ? 1 : 0);
    return nb < g_tooMany ? static_cast<unsigned int>(nb) : g_tooMany;
}

unsigned int nbPlans(const LauncherInfo& info)
{
    unsigned long nb = 0;
    const bool bOverflow = __builtin_mul_overflow(info.sizeZ, info.sizeC, &nb) ||
                           __builtin_mul_overflow(nb, info.sizeT, &nb) || nb > g_tooMany;
    return bOverflow ? g_tooMany : static_cast<unsigned int>(nb);
}

} // namespace

CudaResult details::launchAndWait(const LauncherInfo& info, const char* kernel, void* const* arguments,
                                  void (*runThread)(const orlix::gpu::ThreadPlace&, void* const*))
{
    const unsigned int side = info.blockSize2d & 0xffff;
    hard::GpuLayer& layer = hard::accessGpuLayer();
    layer.launch({{nbBlocks(info.sizeX, side), nbBlocks(info.sizeY, side), nbPlans(info)},
                  {side, side, 1},
                  kernel,
                  arguments,
                  runThread});
    layer.synchronize();
    const int error = layer.takeLastError();
    return error == 0 ? CudaResult{true, ""} : CudaResult{false, layer.getErrorText(error)};
}

} // namespace orlix::imaproc::util::gpu
