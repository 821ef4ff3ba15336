// Kernels that reach into whole images need them in host memory.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessingTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

namespace orlix::imaproc::util {

/// For `preProcess`: the image that the attribute holds has pixels in host memory, or none at all. A failure names
/// both.
processor::StepResult checkHostPixels(const BaseImageAttribute& attribute);

} // namespace orlix::imaproc::util
