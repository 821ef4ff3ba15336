// orlix append: the time steps of several files, one after the other, by appendSeqImg's processor.
#include "CommandMessages.h"
#include "DescribeImage.h"
#include "ImageFiles.h"
#include "OutputOptions.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/AppendSeqImg/AppendSeqImgLvl1.h"

namespace orlix::cli {

namespace {

struct AppendArguments
{
    std::vector<std::string> files; ///< the last one is the output
    FormatOptions format;
};

/// A file holds one element type.
void checkAppendable(const std::string& firstFile, const image::BaseImageGeometry& first, const std::string& file,
                     const image::BaseImageGeometry& other)
{
    if (first.getSizeX() != other.getSizeX() || first.getSizeY() != other.getSizeY() ||
        first.getSizeZ() != other.getSizeZ() || first.getSizeC() != other.getSizeC() ||
        !first.hasSameBufferTypes(other)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNotAppendable, firstFile, first.toString(), file,
                               other.toString());
    }
}

void writeJson(const std::vector<std::string>& inputs, const std::string& target, const image::BaseImage& out,
               CommandContext& context)
{
    JsonWriter json(context.out);
    json.beginObject();
    json.key("inputs");
    json.beginArray();
    for (const std::string& input : inputs) {
        json.value(input);
    }
    json.endArray();
    json.member("output", target);
    writeImageMembers(json, out.getGeometry(), out.getGeometricCalibration());
    json.endObject();
}

void runAppend(const AppendArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    std::vector<std::string> inputs = arguments.files;
    if (inputs.size() < 3) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBadArguments,
                               inputs.size() < 2 ? "SECOND is required" : "OUT is required", "orlix append");
    }
    const std::string target = inputs.back();
    inputs.pop_back();
    checkOutput(target, arguments.format);
    const ImagePtr out = readInput(inputs.front(), context);
    const image::BaseImageGeometry first = out->getGeometry();
    for (std::size_t i = 1; i < inputs.size(); ++i) {
        const ImagePtr next = readInput(inputs[i], context);
        checkAppendable(inputs.front(), first, inputs[i], next->getGeometry());
        static_cast<void>(runProcessor<util::AppendSeqImgLvl1>("append", context, processor::with<attr::InImg1>(out),
                                                               processor::with<attr::InImg2>(next),
                                                               processor::with<attr::OutImg>(out)));
    }
    writeOutput(target, out, arguments.format.write, context);
    if (context.options.bJson) {
        writeJson(inputs, target, *out, context);
    }
}

constexpr VerbRow<AppendArguments> g_row = {
    .name = "append",
    .summary = "Append the time steps of images to those of the first",
    .operands =
        [](OptionList& list, AppendArguments& arguments) {
            list.add("FIRST", arguments.files,
                     "TIFF or PNG files of the same sizes on x, y, z and c and the same\n"
                     "element type, two or more; then the file to write, TIFF (.tif, .tiff)\n"
                     "or PNG (.png), which is replaced once the new one is complete")
                .valueName("SECOND... OUT")
                .required();
        },
    .options = [](OptionList& list, AppendArguments& arguments) { addFormatOptions(list, arguments.format); },
    .run = &runAppend};

} // namespace

extern const Verb g_append;
constinit const Verb g_append = verbOf<g_row>();

} // namespace orlix::cli
