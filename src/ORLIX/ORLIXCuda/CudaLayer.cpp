// The CUDA runtime as the layer of this process. It lies in one module with the kernels, since only the copy of the
// runtime that they are entered in can launch them.
#include "ORLIX/ORLIXHardware/GpuLayer.h"

#include "CudaKernels.h"

#include <cuda_runtime_api.h>

namespace orlix::cuda {

namespace {

/// A call that tells its failure itself leaves nothing behind for `takeLastError`.
gpu::CudaResult resultOf(cudaError_t error)
{
    if (error == cudaSuccess) {
        return {true, ""};
    }
    static_cast<void>(cudaGetLastError());
    return {false, cudaGetErrorString(error)};
}

dim3 dimensionsOf(const gpu::Extent3d& extent)
{
    return {extent.x, extent.y, extent.z};
}

class CudaLayer final : public hard::GpuLayer
{
public:
    gpu::CudaResult countDevices(int& nbDevices) override { return resultOf(cudaGetDeviceCount(&nbDevices)); }

    gpu::CudaResult describe(int device, hard::GpuProperties& properties) override
    {
        cudaDeviceProp told{};
        const gpu::CudaResult result = resultOf(cudaGetDeviceProperties(&told, device));
        if (result.bSuccess) {
            properties.name = told.name;
            properties.computeMajor = told.major;
            properties.computeMinor = told.minor;
            properties.memoryBytes = told.totalGlobalMem;
            properties.nbMultiProcessors = static_cast<unsigned int>(told.multiProcessorCount);
            properties.maxThreadsPerMultiProcessor = static_cast<unsigned int>(told.maxThreadsPerMultiProcessor);
            properties.maxThreadsPerBlock = static_cast<unsigned int>(told.maxThreadsPerBlock);
        }
        return result;
    }

    gpu::CudaResult selectDevice(int device) override { return resultOf(cudaSetDevice(device)); }

    gpu::CudaResult allocate(unsigned long bytes, void*& memory) override
    {
        return resultOf(cudaMalloc(&memory, bytes));
    }
    gpu::CudaResult free(void* memory) override { return resultOf(cudaFree(memory)); }
    gpu::CudaResult upload(void* deviceMemory, const void* hostMemory, unsigned long bytes) override
    {
        return resultOf(cudaMemcpy(deviceMemory, hostMemory, bytes, cudaMemcpyHostToDevice));
    }
    gpu::CudaResult download(void* hostMemory, const void* deviceMemory, unsigned long bytes) override
    {
        return resultOf(cudaMemcpy(hostMemory, deviceMemory, bytes, cudaMemcpyDeviceToHost));
    }
    gpu::CudaResult copy(void* to, const void* from, unsigned long bytes) override
    {
        return resultOf(cudaMemcpy(to, from, bytes, cudaMemcpyDeviceToDevice));
    }

    void launch(const hard::GpuLaunch& launch) override
    {
        static_cast<void>(cudaLaunchKernel(findKernel(launch.kernel), dimensionsOf(launch.grid),
                                           dimensionsOf(launch.block), const_cast<void**>(launch.arguments), 0,
                                           nullptr));
    }
    void synchronize() override { static_cast<void>(cudaDeviceSynchronize()); }
    int takeLastError() override { return static_cast<int>(cudaGetLastError()); }
    const char* getErrorText(int error) override { return cudaGetErrorString(static_cast<cudaError_t>(error)); }
};

CudaLayer& accessCudaLayer()
{
    static CudaLayer g_layer;
    return g_layer;
}

const hard::GpuLayerScope g_scope(accessCudaLayer());

} // namespace

} // namespace orlix::cuda
