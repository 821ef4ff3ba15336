// Values at points by OpenCV's remap, where its image processing module was found when the benchmarks were built.
#pragma once

#include "peers/OpenCv.h"

#include <span>

namespace orlix::bench {

/// A pass that reads the values of a `Real32` plan at the points (xy[0], xy[1]), … into a table of its own, with maps
/// that are made beforehand. `policy` is 0, 1 or 2, as that of the operator. Empty where OpenCV lacks it.
PeerPass makeOpenCvRemap(const image::BaseImage& image, std::span<const double> xy, unsigned policy);

} // namespace orlix::bench
