// How the files of kernels enter them.
#pragma once

#include "CudaKernels.h"

#include "ORLIX/ORLIXHardware/LauncherInfo.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuKernelName.h"

namespace orlix::cuda {

/// In device code.
__device__ inline gpu::ThreadPlace thisThread()
{
    return {{blockIdx.x, blockIdx.y, blockIdx.z},
            {blockDim.x, blockDim.y, blockDim.z},
            {threadIdx.x, threadIdx.y, threadIdx.z}};
}

template <class T>
struct ElementType
{
    using Type = T;
};

/// Calls `enterOne` for each of the seven storage types. For static initialisers.
template <class TEnterOne>
bool enterForEachType(TEnterOne enterOne)
{
    enterOne(ElementType<signed char>());
    enterOne(ElementType<unsigned char>());
    enterOne(ElementType<short>());
    enterOne(ElementType<unsigned short>());
    enterOne(ElementType<int>());
    enterOne(ElementType<unsigned int>());
    enterOne(ElementType<float>());
    return true;
}

template <class... TElements, class... TArguments>
void enter(const char* family, void (*kernel)(TArguments...))
{
    enterKernel(imaproc::util::gpu::kernelName<TElements...>(family), reinterpret_cast<const void*>(kernel));
}

} // namespace orlix::cuda
