// Holds what a header claims against the limits and the file before memory is taken.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"
#include "ORLIXIPL/ORLIXImageIO/ReadOptions.h"

#include <string>

namespace orlix::image::io {

__extension__ using WideSize = unsigned __int128;

std::string textOf(WideSize size);

/// Throws ORLIXImageIOException where the image of this geometry, with `scratchBytes` of working memory, passes a
/// limit.
void checkLimits(const BaseImageGeometry& geometry, WideSize scratchBytes, const ReadLimits& limits,
                 const std::string& file);

/// Throws ORLIXImageIOException where a page's `claimedBytes` can't come out of a file of `fileBytes` bytes, each of
/// which gives at most `largestRatio` bytes of pixels.
void checkPlausibility(unsigned long page, WideSize claimedBytes, unsigned long fileBytes, unsigned long largestRatio,
                       const std::string& file);

} // namespace orlix::image::io
