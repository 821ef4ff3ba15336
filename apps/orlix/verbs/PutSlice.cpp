// orlix put-slice: an image in 2d into a volume, by putSlice3dImg's processor.
#include "CommandMessages.h"
#include "FileVerb.h"
#include "ImageFiles.h"
#include "RunProcessor.h"
#include "SliceOptions.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl1.h"

namespace orlix::cli {

namespace {

struct PutSliceArguments
{
    FileArguments files; ///< the input is the volume
    std::string slice;
    SliceOptions place;
};

/// The operator compares neither element types nor channels and time steps.
void checkSlice(const image::BaseImageGeometry& volume, const image::BaseImageGeometry& slice,
                const PutSliceArguments& arguments)
{
    checkSameType(arguments.files.input, volume, arguments.slice, slice);
    const imaproc::eAxis& axis = arguments.place.axis;
    const unsigned long across = axis == imaproc::eAxis::eX ? volume.getSizeY() : volume.getSizeX();
    const unsigned long down = axis == imaproc::eAxis::eZ ? volume.getSizeY() : volume.getSizeZ();
    const image::BaseImageGeometry wanted(slice.getBufferType(), across, down, {}, volume.getColorGeometry(),
                                          volume.getTemporalGeometry());
    if (slice.getVolumeGeometry().is3d() || !wanted.hasSameSizes(slice)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoSuchSlice, arguments.slice,
                               slice.getVolumeGeometry().is3d() ? "the volume " : "", slice.toString(),
                               sliceAxis(arguments.place, volume).name, arguments.files.input, wanted.toString());
    }
}

ImagePtr putSlice(const PutSliceArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const ImagePtr volume = readInput(arguments.files.input, context);
    const unsigned long index = sliceIndex(arguments.place, volume->getGeometry(), arguments.files.input);
    const ImagePtr slice = readInput(arguments.slice, context);
    checkSlice(volume->getGeometry(), slice->getGeometry(), arguments);
    return runProcessor<util::PutSlice3dImgLvl1>(
               "put slice", context, processor::with<attr::InImg3d>(volume), processor::with<attr::InImg2d>(slice),
               processor::with<attr::InAxis>(arguments.place.axis), processor::with<attr::InSliceIndex>(index),
               processor::with<attr::OutImg>(volume)) // in place
        ->getStorage<attr::OutImg>();
}

constexpr VerbRow<PutSliceArguments> g_row = {
    .name = "put-slice",
    .summary = "Put an image into a volume as its slice along x, y or z",
    .operands =
        [](OptionList& list, PutSliceArguments& arguments) {
            list.add("VOLUME", arguments.files.input, "TIFF file that holds the volume").valueName(" ").required();
            list.add("SLICE", arguments.slice, "TIFF or PNG file that holds the slice, of the same element type")
                .valueName(" ")
                .required();
            addOutputOptions(list, arguments.files.output);
        },
    .options = [](OptionList& list, PutSliceArguments& arguments) { addSliceOptions(list, arguments.place); },
    .run =
        [](const PutSliceArguments& arguments, CommandContext& context) {
            makeFile(arguments.files, context, [&] { return putSlice(arguments, context); });
        }};

} // namespace

extern const Verb g_putslice;
constinit const Verb g_putslice = verbOf<g_row>();

} // namespace orlix::cli
