// Two plans and their difference side by side, to be looked at.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::cli {

/// From left to right: plan (z, c, t) of each image in grey, both from black at their smallest to white at their
/// largest value; their absolute difference in colours from 0 to the largest of this plan; the scale of these colours
/// with that number above it. Pixels that are no number are magenta. Small plans are drawn enlarged by a whole factor.
/// returns  one plan of three channels of UInt8
ImagePtr drawDifference(const image::BaseImage& first, const image::BaseImage& second, unsigned long z, unsigned long c,
                        unsigned long t);

} // namespace orlix::cli
