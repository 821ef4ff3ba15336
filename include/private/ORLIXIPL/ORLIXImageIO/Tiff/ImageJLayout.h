// What ImageJ can't read.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffLayout.h"

#include <string>

namespace orlix::image::io {

/// Throws ORLIXImageIOException, naming `file`, where ImageJ could not read the image that is written so.
void checkForImageJ(const BaseImage& image, const WriteOptions& options, const TiffLayout& layout,
                    const std::string& file);

} // namespace orlix::image::io
