// Whether kernels compute on a device what they have to.
#pragma once

namespace orlix::gpu {

struct KernelTally
{
    int nbKernels = 0;
    int nbFailed = 0;
};

/// Runs every kernel in blocks of `side` by `side` threads against the oracle and prints the first slip of each. Throws
/// std::runtime_error where the device fails.
KernelTally checkKernels(unsigned int side);

} // namespace orlix::gpu
