// What one thread of the copying kernel does.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuElement.h"

namespace orlix::imaproc::util::gpu {

template <class T>
ORLIX_GPU_BODY void CopyImg_thread(const orlix::gpu::ThreadPlace& place, const orlix::gpu::LauncherInfo& info,
                                   const T* const* in, T* const* out)
{
    const GpuElement element = findElement(place, info);
    if (element.bInside) {
        out[element.plan][element.index] = in[element.plan][element.index];
    }
}

} // namespace orlix::imaproc::util::gpu
