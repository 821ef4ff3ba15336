// Bare loops as candidates of a comparison: the limits that an operator is set against.
#pragma once

#include "support/Comparison.h"
#include "support/FlowWork.h"

namespace orlix::bench {

/// Gives the work of the run that goes on.
using AccessFlowWork = std::function<const FlowWork&()>;

/// Adds `loop/ordinary`, `loop/ordinary-blocks`, `loop/ordinary-ahead`, and where bytes are written `loop/streaming`
/// and `loop/streaming-groups`, for so many bytes read and written a pixel.
void addFlowLimits(Comparison& comparison, const AccessFlowWork& accessWork, unsigned long bytesRead,
                   unsigned long bytesWritten);

} // namespace orlix::bench
