// The kernels of this module by name.
#pragma once

namespace orlix::cuda {

/// Enters a kernel: `name` has to live as long as the module, `stub` is the address of its `__global__` function. For
/// static initialisers.
void enterKernel(const char* name, const void* stub);

/// The stub; null where there is none of that name, which no launch accepts.
const void* findKernel(const char* name);

} // namespace orlix::cuda
