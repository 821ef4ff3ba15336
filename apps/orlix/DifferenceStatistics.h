// How far apart two images are, for people: what a count of differing pixels doesn't tell.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::cli {

struct DifferenceStatistics
{
    double largest = 0; ///< of the absolute differences of pixels
    double mean = 0;    ///< of them all, those that are 0 included
    unsigned long nbNotNumbers =
        0; ///< pixel pairs without a difference, since one of them is no number; left out above
};

/// `first` and `second` have the same sizes and element types. Differences are taken in double.
DifferenceStatistics measureDifferences(const image::BaseImage& first, const image::BaseImage& second);

/// The element at x of a row of elements of `type`.
double elementAt(const std::byte* row, unsigned long x, const image::eImageBufferType& type);

} // namespace orlix::cli
