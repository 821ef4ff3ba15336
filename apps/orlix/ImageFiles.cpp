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

ImagePtr readInputRegion(const std::string& file, const image::io::RegionOffsets& offsets,
                         const image::io::RegionSizes& sizes, CommandContext& context)
{
    checkFileName(file);
    image::io::ReadOptions options;
    options.progress = watch("read", context);
    return image::io::readRegion(file, offsets, sizes, options);
}

void checkSameType(const std::string& first, const image::BaseImageGeometry& firstGeometry, const std::string& second,
                   const image::BaseImageGeometry& secondGeometry)
{
    if (firstGeometry.getBufferType() != secondGeometry.getBufferType()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eTypesDiffer, first, firstGeometry.toString(), second,
                               secondGeometry.toString());
    }
}

void writeOutput(const std::string& file, const ImageConstPtr& image, image::io::WriteOptions options,
                 CommandContext& context)
{
    checkElementType(file, *image);
    options.progress = watch("write", context);
    image::io::writeImage(file, image, options);
}

} // namespace orlix::cli
