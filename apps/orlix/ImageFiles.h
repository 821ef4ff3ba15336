// Reading inputs and writing outputs of verbs: with progress.
#pragma once

#include "CommandContext.h"

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/ReadRegion.h"
#include "ORLIXIPL/ORLIXImageIO/WriteOptions.h"

#include <string>

namespace orlix::cli {

/// Throws CommandException for an empty name, which messages about the file could not show.
void checkFileName(const std::string& file);

/// Throws CommandException for an empty name, or ORLIXImageIOException.
ImagePtr readInput(const std::string& file, CommandContext& context);

/// A region of the image, which alone is read. The same errors, also for one that doesn't lie in the image.
ImagePtr readInputRegion(const std::string& file, const image::io::RegionOffsets& offsets,
                         const image::io::RegionSizes& sizes, CommandContext& context);

/// Throws CommandException where the two files, of these geometries, hold elements of different types.
void checkSameType(const std::string& first, const image::BaseImageGeometry& firstGeometry, const std::string& second,
                   const image::BaseImageGeometry& secondGeometry);

/// The errors of `readInput`, also for an element type that the format can't hold. Whatever they are, `file` is
/// as it was and no temporary file is left.
void writeOutput(const std::string& file, const ImageConstPtr& image, image::io::WriteOptions options,
                 CommandContext& context);

} // namespace orlix::cli
