// Options of every verb that writes images.
#pragma once

#include "OptionList.h"

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteOptions.h"

#include <string>

namespace orlix::cli {

/// How files are written.
struct FormatOptions
{
    image::io::WriteOptions write;
    std::string firstTiffOption; ///< an option that was given and means nothing to other formats; empty if none was
};

struct OutputOptions
{
    std::string file;
    FormatOptions format;
};

/// Declares the options that tell how files are written. `options` has to outlive the parser.
void addFormatOptions(OptionList& list, FormatOptions& options);
/// Declares the positional argument OUT too.
void addOutputOptions(OptionList& list, OutputOptions& options);

/// Throws ORLIXImageIOException where the name of the output stands for no format, and CommandException where an option
/// doesn't fit the format. Called before any work is done.
void checkOutput(const std::string& file, const FormatOptions& options);

/// Throws CommandException, with the element types that will do, where the format can't hold those of `image`.
void checkElementType(const std::string& file, const image::BaseImage& image);

} // namespace orlix::cli
