// Whether a region lies within an image, and how to say that it doesn't.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

#include <initializer_list>
#include <string>

namespace orlix::imaproc::util {

/// What a region is on one axis.
struct RegionAxis
{
    const char* name;
    unsigned long imageSize;
    unsigned long offset;
    unsigned long size;
};
using RegionAxes = std::initializer_list<RegionAxis>;

/// "InImg is 512x512, the region 100x100 at (450, 0) ends at x = 550": the first axis on which the region ends outside,
/// counted exactly, also beyond 64 bits. Of a region of three axes that fits, that a single plan is no volume. Else
/// empty.
NumberedText describeRegionMisfit(const BaseImageAttribute& image, const RegionAxes& axes);

} // namespace orlix::imaproc::util
