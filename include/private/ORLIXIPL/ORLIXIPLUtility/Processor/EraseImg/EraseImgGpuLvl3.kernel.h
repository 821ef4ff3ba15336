// What one thread of the erasing kernel does.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GpuElement.h"

namespace orlix::imaproc::util::gpu {

template <class T>
ORLIX_GPU_BODY void EraseImg_thread(const orlix::gpu::ThreadPlace& place, const orlix::gpu::LauncherInfo& info, T value,
                                    T* const* out)
{
    const GpuElement element = findElement(place, info);
    if (element.bInside) {
        out[element.plan][element.index] = value;
    }
}

} // namespace orlix::imaproc::util::gpu
