// orlix paste: a small image into a large one, by the processors of putROI2dImg and putROI3dImg.
#include "CommandMessages.h"
#include "FileVerb.h"
#include "ImageFiles.h"
#include "RegionOptions.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI2dImg/PutROI2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutROI3dImg/PutROI3dImgLvl1.h"

namespace orlix::cli {

namespace {

struct PasteArguments
{
    FileArguments files;
    std::string region;
    GivenNumbers at;
};

void checkFit(const PasteArguments& arguments, const image::BaseImageGeometry& image,
              const image::BaseImageGeometry& region, const char* axis, unsigned long at, unsigned long size,
              unsigned long whole)
{
    if (size > whole || at > whole - size) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eRegionSticksOut, arguments.region, region.toString(),
                               arguments.at->text, arguments.files.input, image.toString(), axis, whole);
    }
}

/// With texts that name files: those of the operator's rules name attributes.
void checkRegion(const PasteArguments& arguments, const image::BaseImageGeometry& image,
                 const image::BaseImageGeometry& region)
{
    const AxisNumbers& at = arguments.at->value;
    const std::string& file = arguments.files.input;
    checkSameType(file, image, arguments.region, region);
    const bool bVolumes = image.getVolumeGeometry().is3d() && region.getVolumeGeometry().is3d();
    if (at.z && !bVolumes) {
        const bool bRegion = image.getVolumeGeometry().is3d();
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoDepth, g_at, arguments.at->text,
                               bRegion ? arguments.region : file);
    }
    if (region.getSizeC() != image.getSizeC() || region.getSizeT() != image.getSizeT() ||
        (!at.z && region.getSizeZ() != image.getSizeZ())) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eOtherAxesDiffer, arguments.region, region.toString(), file,
                               image.toString(),
                               at.z ? "channels and time steps"
                                    : "plans, channels and time steps; with --at X,Y,Z volumes may differ along z");
    }
    checkFit(arguments, image, region, "x", at.x, region.getSizeX(), image.getSizeX());
    checkFit(arguments, image, region, "y", at.y, region.getSizeY(), image.getSizeY());
    if (at.z) {
        checkFit(arguments, image, region, "z", *at.z, region.getSizeZ(), image.getSizeZ());
    }
}

ImagePtr paste(const PasteArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const ImagePtr image = readInput(arguments.files.input, context);
    const ImagePtr region = readInput(arguments.region, context);
    checkRegion(arguments, image->getGeometry(), region->getGeometry());
    const AxisNumbers& at = arguments.at->value;
    if (at.z) {
        return runProcessor<util::PutROI3dImgLvl1>(
                   "paste", context, processor::with<attr::InImg3d>(image), processor::with<attr::InROIImg3d>(region),
                   processor::with<attr::InInputImg3dOffset>(attr::createImg3dOffset(at.x, at.y, *at.z)),
                   processor::with<attr::OutImg>(image)) // in place
            ->getStorage<attr::OutImg>();
    }
    return runProcessor<util::PutROI2dImgLvl1>(
               "paste", context, processor::with<attr::InImg>(image), processor::with<attr::InROIImg>(region),
               processor::with<attr::InInputImg2dOffset>(attr::createImg2dOffset(at.x, at.y)),
               processor::with<attr::OutImg>(image))
        ->getStorage<attr::OutImg>();
}

constexpr VerbRow<PasteArguments> g_row = {
    .name = "paste",
    .summary = "Put a small image into a large one",
    .operands =
        [](OptionList& list, PasteArguments& arguments) {
            list.add("IN", arguments.files.input, "TIFF or PNG file to put it into").valueName(" ").required();
            list.add("REGION", arguments.region, "TIFF or PNG file that holds what is put, of the same element type")
                .valueName(" ")
                .required();
            addOutputOptions(list, arguments.files.output);
        },
    .options =
        [](OptionList& list, PasteArguments& arguments) {
            addOffsetOption(list, arguments.at,
                            "Where its first pixel goes, counted from 0, needed; with Z both\n"
                            "are volumes, without it both have as many plans")
                .required();
        },
    .run =
        [](const PasteArguments& arguments, CommandContext& context) {
            makeFile(arguments.files, context, [&] { return paste(arguments, context); });
        }};

} // namespace

extern const Verb g_paste;
constinit const Verb g_paste = verbOf<g_row>();

} // namespace orlix::cli
