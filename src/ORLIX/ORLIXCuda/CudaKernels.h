// The kernels of this module by name.
#pragma once

#include <string>

namespace orlix::cuda {

/// Enters a kernel: `stub` is the address of its `__global__` function. For
/// static initialisers.
void enterKernel(const std::string& name, const void* stub);

/// The stub; null where there is none of that name, which no launch accepts.
const void* findKernel(const char* name);

} // namespace orlix::cuda
