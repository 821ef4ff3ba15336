// Options of every verb that writes an image.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/WriteOptions.h"

#include <string>

namespace CLI {
class App;
}

namespace orlix::cli {

struct OutputOptions
{
    std::string file;
    image::io::WriteOptions write;
    std::string firstTiffOption; ///< an option that was given and means nothing to other formats; empty if none was
};

/// Declares the positional argument OUT and the options. `options` has to outlive the parser.
void addOutputOptions(CLI::App& app, OutputOptions& options);

/// Throws ORLIXImageIOException where the name of the output stands for no format, and CommandException where an option
/// doesn't fit the format. Called before any work is done.
void checkOutputOptions(const OutputOptions& options);

} // namespace orlix::cli
