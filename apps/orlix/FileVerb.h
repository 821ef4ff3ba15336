// What the verbs share that make one image file out of another.
#pragma once

#include "CommandContext.h"
#include "OutputOptions.h"

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <functional>
#include <string>

namespace orlix::cli {

struct FileArguments
{
    std::string input;
    OutputOptions output;
};

/// Declares the arguments IN and OUT and the options of outputs. `arguments` has to outlive the parser.
void addFileArguments(OptionList& options, FileArguments& arguments);

/// Makes the output of the input, which belongs to nobody else.
using ImageWork = std::function<ImagePtr(const ImagePtr& in)>;

/// Makes the output, of inputs that it reads itself.
using OutputWork = std::function<ImagePtr()>;

/// Checks the name of the output, writes what `work` makes to OUT, and tells with --json what was written. Whatever
/// fails, OUT is as it was.
void makeFile(const FileArguments& arguments, CommandContext& context, const OutputWork& work);

/// Checks the name of the output, reads IN, writes what `work` makes of it to OUT, and tells with --json what was
/// written. Whatever fails, OUT is as it was.
void transformFile(const FileArguments& arguments, CommandContext& context, const ImageWork& work);

} // namespace orlix::cli
