// orlix copy: an image into another file, by copyImg's processor.
#include "DescribeImage.h"
#include "ImageFiles.h"
#include "Interruption.h"
#include "OutputOptions.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"

#include <CLI/CLI.hpp>

namespace orlix::cli {

namespace {

struct CopyArguments
{
    std::string input;
    OutputOptions output;
};

ImagePtr copyFile(const CopyArguments& arguments, CommandContext& context)
{
    using namespace imaproc;
    const InterruptibleWork work;
    const ImagePtr in = readInput(arguments.input, context);
    const ImagePtr out =
        runProcessor<util::CopyImgLvl1>("copy", context, processor::with<attr::InImg>(in))->getStorage<attr::OutImg>();
    writeOutput(arguments.output.file, out, arguments.output.write, context);
    return out;
}

void runCopy(const CopyArguments& arguments, CommandContext& context)
{
    checkOutputOptions(arguments.output);
    const ImagePtr copy = copyFile(arguments, context);
    if (context.options.bJson) {
        JsonWriter json(context.out);
        json.beginObject();
        json.member("input", arguments.input);
        json.member("output", arguments.output.file);
        writeImageMembers(json, copy->getGeometry(), copy->getGeometricCalibration());
        json.endObject();
    }
}

VerbRun setUpCopy(CLI::App& app)
{
    const auto arguments = boost::make_shared<CopyArguments>();
    app.add_option("IN", arguments->input, "TIFF or PNG file to read")->option_text(" ")->required();
    addOutputOptions(app, arguments->output);
    return [arguments](CommandContext& context) { runCopy(*arguments, context); };
}

} // namespace

extern const Verb g_copy;
constinit const Verb g_copy = {"copy", "Copy an image to another file, in the format that its name ends in",
                               &setUpCopy};

} // namespace orlix::cli
