// Reading inputs and writing outputs of verbs: with progress.
#include "ImageFiles.h"

#include "CommandMessages.h"
#include "OutputOptions.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

namespace orlix::cli {

namespace {

image::io::ProgressFunction watch(const char* phase, CommandContext& context)
{
    return [phase, &context](unsigned long done, unsigned long known) {
        context.progress.show(phase, done, known);
        return true;
    };
}

} // namespace

void checkFileName(const std::string& file)
{
    if (file.empty()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoFileName);
    }
}

ImagePtr readInput(const std::string& file, CommandContext& context)
{
    checkFileName(file);
    image::io::ReadOptions options;
    options.progress = watch("read", context);
    return image::io::readImage(file, options);
}

void writeOutput(const std::string& file, const ImageConstPtr& image, image::io::WriteOptions options,
                 CommandContext& context)
{
    checkElementType(file, *image);
    options.progress = watch("write", context);
    image::io::writeImage(file, image, options);
}

} // namespace orlix::cli
