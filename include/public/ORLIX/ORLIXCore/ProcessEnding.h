// Tells the end of the process, at which threads may still run, from the unloading of a library, at which none may.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"

namespace orlix::core {

/// To be called where something is made that running threads need; the end of the process is noticed from then on.
ORLIXCORE_API void watchProcessEnd();
/// True for the functions that the loader calls when the process ends; false when a library is unloaded.
ORLIXCORE_API bool isProcessEnding();

} // namespace orlix::core
