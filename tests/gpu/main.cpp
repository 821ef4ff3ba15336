// Checks all kernels on the first CUDA device and times them. Needs the CUDA toolkit and nothing else, so that it can
// be built on a computer where the libraries can't: see docs/gpu.md. Exits with 0 where all kernels are right, with 77
// where there is no device, else with 1.
#include "CheckKernels.h"
#include "TimeKernels.h"

#include <cuda_runtime.h>

#include <cstdlib>
#include <iostream>
#include <stdexcept>

namespace {

constexpr int g_skipped = 77;
constexpr int g_nbKernels = 3 * 7 + 7 * 7;

bool areKernelsRight(unsigned int side)
{
    const orlix::gpu::KernelTally tally = orlix::gpu::checkKernels(side);
    std::cout << tally.nbKernels - tally.nbFailed << " of " << tally.nbKernels << " kernels right in blocks of " << side
              << "\n";
    return tally.nbFailed == 0 && tally.nbKernels == g_nbKernels;
}

} // namespace

int main()
{
    int nbDevices = 0;
    if (const cudaError_t error = cudaGetDeviceCount(&nbDevices); error != cudaSuccess || nbDevices == 0) {
        std::cout << "Skipped: no CUDA device: " << cudaGetErrorString(error) << "\n";
        return g_skipped;
    }
    try {
        cudaDeviceProp device{};
        if (cudaGetDeviceProperties(&device, 0) == cudaSuccess) {
            std::cout << device.name << ", compute capability " << device.major << "." << device.minor << "\n";
        }
        const bool bRight16 = areKernelsRight(16), bRight32 = areKernelsRight(32);
        orlix::gpu::timeKernels();
        return bRight16 && bRight32 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::cout << error.what() << "\n";
        return EXIT_FAILURE;
    }
}
