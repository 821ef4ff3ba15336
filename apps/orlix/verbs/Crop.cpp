// orlix crop: a region of an image, of which nothing else is read.
#include "CommandMessages.h"
#include "FileVerb.h"
#include "ImageFiles.h"
#include "RegionOptions.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::cli {

namespace {

struct CropArguments
{
    FileArguments files;
    GivenNumbers at;
    GivenNumbers size;
    std::optional<GivenValue<PlacedSize>> region;
};

constexpr const char* g_size = "--size";

/// --region as the two others would tell it. Throws where nothing, or something twice, tells of a region.
CropArguments inTwoOptions(CropArguments arguments)
{
    auto& [files, at, size, region] = arguments;
    if (region) {
        if (at || size) {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eRegionTwice, at ? g_at : g_size);
        }
        at = {region->value.at, region->text};
        size = {region->value.size, region->text};
    }
    if (!at && !size) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoRegion);
    }
    return arguments;
}

bool hasDepth(const GivenNumbers& numbers)
{
    return numbers && numbers->value.z;
}

ImagePtr crop(const CropArguments& arguments, CommandContext& context)
{
    const auto& [files, at, size, region] = arguments;
    image::io::RegionOffsets offsets;
    if (at) {
        offsets = {at->value.x, at->value.y, at->value.z.value_or(0)};
    }
    image::io::RegionSizes sizes;
    if (size) {
        sizes = {.x = size->value.x, .y = size->value.y, .z = size->value.z};
    }
    const ImagePtr out = readInputRegion(files.input, offsets, sizes, context);
    if ((hasDepth(at) || hasDepth(size)) && !out->getGeometry().getVolumeGeometry().is3d()) {
        const bool bAt = hasDepth(at);
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoDepth, bAt ? g_at : g_size, bAt ? at->text : size->text,
                               files.input);
    }
    return out;
}

constexpr VerbRow<CropArguments> g_row = {
    .name = "crop",
    .summary = "Cut a region out of an image",
    .operands = [](OptionList& list, CropArguments& arguments) { addFileArguments(list, arguments.files); },
    .options =
        [](OptionList& list, CropArguments& arguments) {
            addOffsetOption(list, arguments.at,
                            "First pixel of the region, counted from 0; without Z all plans\n"
                            "are cut; default: 0,0");
            addSizeOption(list, g_size, arguments.size, "Pixels along x, y and z; default: up to the end of the image");
            addRegionOption(list, arguments.region, "The same in one word, for x and y: width, height, first pixel");
            list.setFooter([] {
                return std::string("All channels and time steps are cut alike. Of TIFF files the strips or tiles that\n"
                                   "the region touches are read, nothing else. A position in the file stays the same\n"
                                   "position: the origin of the calibration moves with the region.");
            });
        },
    .run =
        [](const CropArguments& arguments, CommandContext& context) {
            const CropArguments region = inTwoOptions(arguments);
            makeFile(arguments.files, context, [&] { return crop(region, context); });
        }};

} // namespace

extern const Verb g_crop;
constinit const Verb g_crop = verbOf<g_row>();

} // namespace orlix::cli
