// How much processor time the control groups of this process leave it.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"

#include <string>

namespace orlix::core {

/// Processors that the tightest quota amounts to, rounded up; 0 where there is none. The process's own group counts and
/// every group around it, of version 1 and 2, as far as they can be seen. `root` stands before /proc and /sys.
ORLIXCORE_API unsigned long countQuotaProcessors(const std::string& root);

} // namespace orlix::core
