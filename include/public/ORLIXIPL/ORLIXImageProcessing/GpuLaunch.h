// Whether a sub-image is worked on by a GPU.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessingTypes.h"

namespace orlix::imaproc {

/// Asked first by every level 2 that could hand its sub-image to a GPU. Images live on the host alone, so the answer is
/// that the processor's cores do the work.
inline processor::ProviderResult tryToLaunchGpuProcess()
{
    return processor::ProviderResult::none();
}

} // namespace orlix::imaproc
