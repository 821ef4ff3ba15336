// Boxes of pixels that follow one another by any distances.
#pragma once

#include "ORLIXIPL/ORLIXImage/Export.h"

#include <cstddef>

namespace orlix::image {

/// Bytes from a pixel to the next along three axes, which need not be x, y and z. Any of them may be negative or, where
/// pixels are only read, 0.
struct ByteSteps
{
    long x, y, z;
};

/// Pixels along these.
struct BlockSize
{
    unsigned long x, y, z;
};

/// Copies a box of elements of `elementBytes`, 1, 2 or 4. Axes may lie in another order in the source than in the
/// destination: then it goes by tiles, so that cache lines are used as a whole on both sides. Source and destination
/// share no memory. Nothing is allocated.
ORLIXIMAGE_API void copyBlock(std::byte* to, const ByteSteps& toSteps, const std::byte* from,
                              const ByteSteps& fromSteps, const BlockSize& size, unsigned long elementBytes);

} // namespace orlix::image
