// The loop that runs the elements of one level.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

namespace orlix::core {

class BaseActionProvider;
class RunContext;

/// Runs all elements of `provider` and clears it. The first failing element by index decides the result, and an
/// exception of an element is thrown again here, unchanged. No element behind a failed one starts, and none after a
/// cancellation.
ORLIXCORE_API ProcessingResult<bool> runElements(BaseActionProvider& provider, RunContext& context);

} // namespace orlix::core
