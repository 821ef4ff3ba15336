// What one thread of the thresholding kernel does.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuElement.h"

namespace orlix::imaproc::util::gpu {

/// A NaN is in no range.
template <class T>
ORLIX_GPU_BODY void BasicThresholdImg_thread(const orlix::gpu::ThreadPlace& place, const orlix::gpu::LauncherInfo& info,
                                             const T* const* in, T min, T max, unsigned char* const* out)
{
    const GpuElement element = findElement(place, info);
    if (element.bInside) {
        const T value = in[element.plan][element.index];
        out[element.plan][element.index] = value >= min && value <= max ? 1 : 0;
    }
}

} // namespace orlix::imaproc::util::gpu
