// Comparison as NumPy does it, on one thread: each operation is a pass over whole arrays into a new whole array.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <functional>

namespace orlix::bench {

/// `count_nonzero(a != b)` for images of one plan, which the caller keeps alive.
std::function<void()> makeArrayCount(const image::BaseImage& first, const image::BaseImage& second);
/// `count_nonzero(maximum(a, b) - minimum(a, b) > absolute)`.
std::function<void()> makeArrayCountBeyond(const image::BaseImage& first, const image::BaseImage& second,
                                           float absolute);

} // namespace orlix::bench
