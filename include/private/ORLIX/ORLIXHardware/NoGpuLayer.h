// The layer of a process without CUDA code.
#pragma once

#include "ORLIX/ORLIXHardware/GpuLayer.h"

namespace orlix::hard::details {

/// Knows no device, and every call fails and says that there is no CUDA code.
ORLIXHARDWARE_API GpuLayer& accessNoGpuLayer();

} // namespace orlix::hard::details
