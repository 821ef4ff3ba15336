// What all kernels for devices begin with: which element is this thread's. For nvcc as well, without any include but
// this.
#pragma once

#include "ORLIX/ORLIXHardware/LauncherInfo.h"

#ifdef __CUDACC__
#define ORLIX_GPU_BODY __host__ __device__ inline
#else
#define ORLIX_GPU_BODY inline
#endif

namespace orlix::imaproc::util::gpu {

struct GpuElement
{
    bool bInside;        ///< threads of the last blocks may have none
    unsigned long plan;  ///< in the tables
    unsigned long index; ///< in the plan, whose rows touch
};

ORLIX_GPU_BODY GpuElement findElement(const orlix::gpu::ThreadPlace& place, const orlix::gpu::LauncherInfo& info)
{
    const unsigned long x = place.blockIndex.x * place.blockSize.x + place.threadIndex.x; // in 32 bits, then widened
    const unsigned long y = place.blockIndex.y * place.blockSize.y + place.threadIndex.y;
    const unsigned long plan = place.blockIndex.z * place.blockSize.z + place.threadIndex.z;
    return {x < info.sizeX && y < info.sizeY && plan < info.sizeZ * info.sizeC * info.sizeT, plan, info.sizeX * y + x};
}

} // namespace orlix::imaproc::util::gpu
