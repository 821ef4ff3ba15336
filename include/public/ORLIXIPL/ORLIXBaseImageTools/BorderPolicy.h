// What stands for pixels beyond the border of an image.
#pragma once

#include "ORLIXIPL/ORLIXBaseImageTools/Export.h"

namespace orlix::image {

/// Gives the place of the pixel that stands for the one at `position`, on an axis of `size` pixels, at least 1. A
/// position below 0 is one that wrapped: 2^64 - 1 is that before the first pixel.
using BorderFunction = unsigned long (*)(unsigned long position, unsigned long size);

/// Border functions by axis.
struct Border2dPolicy
{
    BorderFunction x;
    BorderFunction y;
};
struct Border3dPolicy
{
    BorderFunction x;
    BorderFunction y;
    BorderFunction z;
};

/// The image and its mirror images side by side, with the border between pixels: dcba|abcd|dcba. Any distance from the
/// border will do; an axis of one pixel always gives that one.
ORLIXBASEIMAGETOOLS_API unsigned long mirorPosition(unsigned long position, unsigned long size);

/// `mirorPosition` on every axis.
ORLIXBASEIMAGETOOLS_API Border2dPolicy mirorBorder2d();
ORLIXBASEIMAGETOOLS_API Border3dPolicy mirorBorder3d();

} // namespace orlix::image
