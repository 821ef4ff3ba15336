// What happens to asynchronous runs when the process ends.
#pragma once

#include "ORLIX/ORLIXUtil/ProcessingResult.h"

namespace orlix::core {

/// From now on the end of the process, by exit or by return from main, drops runs that nobody has taken up, cancels
/// those under way and waits for them. Cheap after the first call of a thread.
void endRunsWithProcess();

/// The failure of a run that was dropped. Needs no catalogue, which may have ended before the last run is dropped; says
/// that memory is out where it is.
ProcessingResult<bool> processEnds() noexcept;

} // namespace orlix::core
