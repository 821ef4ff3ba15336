// ORLIX_SIMD_INLINE marks every function that kernels call.
#pragma once

/// A function that a kernel calls has to become part of the kernel, also without optimisation: a copy of its own, made
/// with the flags of a wide instruction set, could be the one that the linker gives to code for every processor.
#define ORLIX_SIMD_INLINE inline __attribute__((always_inline))

/// The same for a lambda, after its parameters.
#define ORLIX_SIMD_LAMBDA __attribute__((always_inline))
