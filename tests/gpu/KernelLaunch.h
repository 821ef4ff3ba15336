// Launches a kernel by its name over all plans, as launchers do.
#pragma once

#include "CudaKernels.h"
#include "ORLIX/ORLIXHardware/LauncherInfo.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuKernelName.h"

#include <cuda_runtime.h>

#include <stdexcept>

namespace orlix::gpu {

/// One plan of sizeX by sizeY, or `nbPlans` of them.
inline LauncherInfo infoOf(unsigned int side, unsigned long sizeX, unsigned long sizeY, unsigned long nbPlans = 1)
{
    return {1, 1, 1, side, 0, 0, sizeX, sizeY, nbPlans, 1, 1};
}

/// A kernel, looked up once. Throws std::runtime_error for a name that no kernel has.
class Kernel
{
public:
    explicit Kernel(const std::string& name) : m_stub(cuda::findKernel(name.c_str()))
    {
        if (m_stub == nullptr) {
            throw std::runtime_error("no kernel " + name);
        }
    }

    template <class... TArguments>
    cudaError_t start(LauncherInfo info, TArguments... values) const
    {
        void* arguments[] = {&info, &values...};
        const unsigned int side = info.blockSize2d & 0xffff;
        const auto nbBlocks = [side](unsigned long size) {
            return static_cast<unsigned int>((size + side - 1) / side);
        };
        const auto nbPlans = static_cast<unsigned int>(info.sizeZ * info.sizeC * info.sizeT);
        return cudaLaunchKernel(m_stub, dim3(nbBlocks(info.sizeX), nbBlocks(info.sizeY), nbPlans), dim3(side, side, 1),
                                arguments, 0, nullptr);
    }

private:
    const void* m_stub;
};

} // namespace orlix::gpu
