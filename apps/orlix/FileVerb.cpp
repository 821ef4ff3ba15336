// What the verbs share that make one image file out of another.
#include "FileVerb.h"

#include "DescribeImage.h"
#include "ImageFiles.h"

namespace orlix::cli {

void addFileArguments(OptionList& options, FileArguments& arguments)
{
    options.add("IN", arguments.input, "TIFF or PNG file to read").valueName(" ").required();
    addOutputOptions(options, arguments.output);
}

void makeFile(const FileArguments& arguments, CommandContext& context, const OutputWork& work)
{
    const std::string& target = arguments.output.file;
    checkOutput(target, arguments.output.format);
    const ImagePtr out = work();
    writeOutput(target, out, arguments.output.format.write, context);
    if (context.options.bJson) {
        JsonWriter json(context.out);
        json.beginObject();
        json.member("input", arguments.input);
        json.member("output", target);
        writeImageMembers(json, out->getGeometry(), out->getGeometricCalibration());
        json.endObject();
    }
}

void transformFile(const FileArguments& arguments, CommandContext& context, const ImageWork& work)
{
    makeFile(arguments, context, [&] { return work(readInput(arguments.input, context)); });
}

} // namespace orlix::cli
