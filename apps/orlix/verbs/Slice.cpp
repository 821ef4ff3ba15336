// orlix slice: a plane of a volume as an image in 2d, by getSlice3dImg's processor.
#include "CommandMessages.h"
#include "FileVerb.h"
#include "ImageFiles.h"
#include "RunProcessor.h"
#include "SliceOptions.h"
#include "Verb.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl1.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

namespace orlix::cli {

namespace {

struct SliceArguments
{
    FileArguments files;
    SliceOptions slice;
};

/// The slice alone, as a volume that has one pixel along the axis.
ImagePtr readSlice(const SliceArguments& arguments, CommandContext& context)
{
    const std::string& file = arguments.files.input;
    checkFileName(file);
    const unsigned long index = sliceIndex(arguments.slice, image::io::readImageInfo(file).geometry, file);
    switch (static_cast<imaproc::eAxis::domain>(arguments.slice.axis)) {
    case imaproc::eAxis::eX: return readInputRegion(file, {.x = index}, {.x = 1}, context);
    case imaproc::eAxis::eY: return readInputRegion(file, {.y = index}, {.y = 1}, context);
    default: return readInputRegion(file, {.z = index}, {.z = 1}, context);
    }
}

ImagePtr slice(const SliceArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const ImagePtr in = readSlice(arguments, context);
    const ImagePtr out = runProcessor<util::GetSlice3dImgLvl1>("slice", context, processor::with<attr::InImg3d>(in),
                                                               processor::with<attr::InAxis>(arguments.slice.axis),
                                                               processor::with<attr::InSliceIndex>(0ul))
                             ->getStorage<attr::OutImg2d>();
    out->setGeometricCalibration(calibrationOfSlice(in->getGeometricCalibration(), arguments.slice.axis));
    return out;
}

constexpr VerbRow<SliceArguments> g_row = {
    .name = "slice",
    .summary = "Cut a slice along x, y or z out of a volume",
    .operands = [](OptionList& list, SliceArguments& arguments) { addFileArguments(list, arguments.files); },
    .options = [](OptionList& list, SliceArguments& arguments) { addSliceOptions(list, arguments.slice); },
    .run =
        [](const SliceArguments& arguments, CommandContext& context) {
            makeFile(arguments.files, context, [&] { return slice(arguments, context); });
        }};

} // namespace

extern const Verb g_slice;
constinit const Verb g_slice = verbOf<g_row>();

} // namespace orlix::cli
