// OME-XML, the description that microscopes and their programs write into the first page of a TIFF file.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageMetadata.h"

#include <string_view>

namespace orlix::image::io {

bool isOmeDescription(std::string_view text);

/// Axes, places of the pages and calibration of the first image that the description tells of. Throws
/// ORLIXImageIOException where it is no XML, contradicts itself or the pages, leaves a plan without a page, or puts
/// pixels into another file.
ImageMetadata metadataOfOme(std::string_view text, const PageFacts& facts);

} // namespace orlix::image::io
