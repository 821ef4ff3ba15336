// Bare loops over points: the arithmetic of the operators and nothing else. Points keep clear of the border.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <span>

namespace orlix::bench {

/// Values of a `Real32` plan at (xy[0], xy[1]), …; `policy` is 0, 1 or 2.
void readPlan(const image::BaseImage& image, std::span<const double> xy, unsigned policy, std::span<double> values);
/// Values of a `Real32` volume at (xyz[0], xyz[1], xyz[2]), ….
void readVolume(const image::BaseImage& image, std::span<const double> xyz, unsigned policy, std::span<double> values);

/// The same as array libraries do it: one loop over however many axes, order and weights in tables for each point.
void readAnyAxes(const image::BaseImage& image, std::span<const double> places, unsigned long nbAxes, unsigned policy,
                 std::span<double> values);

} // namespace orlix::bench
