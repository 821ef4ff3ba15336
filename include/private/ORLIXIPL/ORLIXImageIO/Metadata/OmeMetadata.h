// OME-XML, the description that microscopes and their programs write into the first page of a TIFF file.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeFiles.h"

#include <string>
#include <string_view>

namespace orlix::image::io {

bool isOmeDescription(std::string_view text);

/// The UUID that the description says its own file to have; empty where it says nothing.
std::string uuidOfOme(std::string_view text);

/// Axes, places of the pages and calibration of the first image that lies in this file, at least in part, or of the
/// first image where none does. Throws ORLIXImageIOException where the description is no XML, contradicts itself or the
/// pages, leaves a plan without a page, or puts pixels into a file that `files` does not find; null knows this file
/// alone.
ImageMetadata metadataOfOme(std::string_view text, const PageFacts& facts, OmeFiles* files = nullptr);

} // namespace orlix::image::io
