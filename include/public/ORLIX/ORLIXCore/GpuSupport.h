// Whether operators may run on CUDA devices.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

namespace orlix::core {

/// Does GPU support take part: do operators work on the device where all their images lie on one? False until it is
/// switched on. Safe from every thread.
ORLIXCORE_API bool isGpuSupportActivated();

/// Switches GPU support on or off for the whole process. Fails, and leaves it off, where there is no device; the text
/// says why there is none. Switch it while nothing runs.
ORLIXCORE_API ProcessingResult<bool> setGpuSupportActivated(bool bActivated);

} // namespace orlix::core
