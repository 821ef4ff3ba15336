// orlix run: any processor of the factory, on values and files.
#include "AttributeFiles.h"
#include "DescribeAttributes.h"
#include "NamedProcessor.h"
#include "RunProcessor.h"
#include "Verb.h"

namespace orlix::cli {

namespace {

struct RunArguments
{
    std::string processor;
    std::vector<std::string> assignments;
    std::vector<std::string> given;
    FormatOptions format;
};

void runNamed(const RunArguments& arguments, CommandContext& context)
{
    const std::string name = findProcessor(arguments.processor);
    const boost::shared_ptr<processor::BaseProcessor> processor = makeProcessor(name);
    AttributeFiles attributes(processor);
    for (const std::string& assignment : arguments.assignments) {
        attributes.assign(assignment);
    }
    for (const std::string& assignment : arguments.given) {
        attributes.give(assignment);
    }
    attributes.check(arguments.format);
    attributes.readImages(context);
    runWatched(processor, processor->getObjectName().c_str(), context);
    attributes.writeImages(arguments.format, context);
    if (!context.options.bJson) {
        attributes.printValues(context.out);
        return;
    }
    JsonWriter json(context.out);
    json.beginObject();
    json.member("processor", name);
    json.key("outputs");
    attributes.writeOutputs(json);
    json.endObject();
}

/// For the help text; nothing where no processor is named.
std::string helpOnAttributes(const std::string& processor)
{
    if (processor.empty()) {
        return "`orlix run PROCESSOR --help` lists the attributes of a processor.\n";
    }
    const std::string name = findProcessor(processor);
    return "Attributes of " + name + ":\n" + describeAttributes(*makeProcessor(name));
}

constexpr VerbRow<RunArguments> g_row = {
    .name = "run",
    .summary = "Run any processor by name, on values and files",
    .operands =
        [](OptionList& list, RunArguments& arguments) {
            list.add("PROCESSOR", arguments.processor,
                     "Name of the processor as `orlix processors` tells it; what stands\n"
                     "before the last :: may be left out")
                .valueName(" ")
                .required();
            list.add("ATTRIBUTE=VALUE", arguments.assignments,
                     "Value of an input; for images the file to read or, for an\n"
                     "output, to write. Outputs that no file is named for are dropped")
                .valueName("...");
        },
    .options =
        [](OptionList& list, RunArguments& arguments) {
            list.add("--given", arguments.given,
                     "Read the image that an output holds before the run; for\n"
                     "processors that write into an image that is there")
                .valueName("ATTRIBUTE=FILE")
                .oneValueEach();
            addFormatOptions(list, arguments.format);
            list.setFooter([&arguments] { return helpOnAttributes(arguments.processor); });
        },
    .run = &runNamed};

} // namespace

extern const Verb g_run;
constinit const Verb g_run = verbOf<g_row>();

} // namespace orlix::cli
