// What kernels take on a device.
#pragma once

namespace orlix::gpu {

/// Prints a table: the bytes that kernels read and write in a second on a plan of 8192 x 8192 elements, beside the same
/// of a copy by the runtime, in blocks of 16 and of 32; then what a launch on a small plan takes until it has ended.
/// Throws std::runtime_error where the device fails.
void timeKernels();

} // namespace orlix::gpu
