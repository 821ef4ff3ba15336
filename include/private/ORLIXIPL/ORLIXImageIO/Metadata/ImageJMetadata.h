// The description that ImageJ writes into the first page of a TIFF file.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"

#include <string_view>

namespace orlix::image::io {

bool isImageJDescription(std::string_view text);

/// Axes from images, channels, slices and frames; pixel sizes from the resolution tags, spacing and unit. Where the
/// description tells of more images than the file has pages, and the file has one, the rest follows it without
/// directories (`bRawStack`). Throws ORLIXImageIOException for numbers that contradict one another or the file.
ImageMetadata metadataOfImageJ(std::string_view text, const PageFacts& facts, const Resolution& resolution);

} // namespace orlix::image::io
