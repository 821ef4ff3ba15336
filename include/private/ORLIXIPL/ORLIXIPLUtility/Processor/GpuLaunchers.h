// What has a device do the work of an operator: one launcher for each operator and its element types.
#pragma once

#include "ORLIX/ORLIXHardware/GpuLayer.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"

namespace orlix::imaproc::util::gpu {

using orlix::gpu::CudaResult;
using orlix::gpu::LauncherInfo;

// Each runs its kernel over all plans of the images that `info` describes, one thread for each element, and waits.
// Tables lie on the device that the calling thread has selected and hold its address of each plan, whose rows touch. A
// failure of the launch, of the kernel or of what the device had to do before has the text of the runtime; elements of
// the output are undefined then. T, TIn and TOut are the seven storage types.

/// out = in, bit for bit.
template <class T>
ORLIXIPLUTILITY_API CudaResult CopyImg_knlLauncher(const LauncherInfo* info, const T** in, T** out);

/// out = value.
template <class T>
ORLIXIPLUTILITY_API CudaResult EraseImg_knlLauncher(const LauncherInfo* info, T value, T** out);

/// out = 1 where min <= in <= max, else 0.
template <class T>
ORLIXIPLUTILITY_API CudaResult BasicThresholdImg_knlLauncher(const LauncherInfo* info, const T** in, T min, T max,
                                                             unsigned char** out);

/// out = in as devices convert, or, where the output is binary, 1 where in isn't 0, else 0.
template <class TIn, class TOut>
ORLIXIPLUTILITY_API CudaResult ConvertImg_knlLauncher(const LauncherInfo* info, bool bBinary, const TIn** in,
                                                      TOut** out);

namespace details {

/// Grid and block for `info`, the launch, the wait, and what came of it. A size beyond what a grid can have gives one
/// that no device accepts.
CudaResult launchAndWait(const LauncherInfo& info, const char* kernel, void* const* arguments,
                         void (*runThread)(const orlix::gpu::ThreadPlace&, void* const*));

/// The argument at its place, as launches pass it.
template <class T>
const T& argument(void* const* arguments, int index)
{
    return *static_cast<const T*>(arguments[index]);
}

} // namespace details

} // namespace orlix::imaproc::util::gpu
