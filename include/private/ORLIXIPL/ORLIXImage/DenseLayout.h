// Where the plans of a new image lie in one block of memory.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <vector>

namespace orlix::image {

/// Elements behind each plan that kernels may read and write: one block of the widest kernel.
inline constexpr unsigned long g_roomElements = 64;

/// Boundary in bytes on which every plan starts.
inline constexpr unsigned long g_planAlignment = 64;

/// Distances of a new image and the bytes of its block; `first` and `owner` are not set.
struct DenseLayout
{
    PixelLayout layout;
    unsigned long bytes = 0;
    std::vector<unsigned long> stepOffsets; ///< bytes from the block's start to each step, where types differ by step
};

/// Rows touch, each plan starts on a 64-byte boundary of the block and has its room behind it, the last one too.
/// Throws ORLIXImageException where a step has no element type or the bytes exceed 2^63 - 1.
DenseLayout makeDenseLayout(const BaseImageGeometry& geometry);

/// The layout of a new image in a block of its own. Throws ORLIXImageException as above, and where the block can't be
/// had.
PixelLayout allocateDense(const BaseImageGeometry& geometry);

} // namespace orlix::image
