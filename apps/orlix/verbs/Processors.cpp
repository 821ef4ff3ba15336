// orlix processors: what the processor factory knows.
#include "DescribeAttributes.h"
#include "JsonWriter.h"
#include "NamedProcessor.h"
#include "PlainText.h"
#include "Verb.h"

#include <boost/make_shared.hpp>

namespace orlix::cli {

namespace {

using processor::ProcessorFactory;

void printProcessor(std::ostream& out, const std::string& name, const ProcessorFactory::ProcessorInfo& info)
{
    out << printable(name) << "\n  " << printable(info.toolTip) << "\n  " << printable(info.libraryName) << ", "
        << printable(info.headerPath.string()) << "\n";
}

void writeMembers(JsonWriter& json, const std::string& name, const ProcessorFactory::ProcessorInfo& info)
{
    json.member("name", name);
    json.member("toolTip", info.toolTip);
    json.member("library", info.libraryName);
    json.member("header", info.headerPath.string());
}

void listProcessors(CommandContext& context)
{
    const ProcessorFactory& factory = ProcessorFactory::getInstance();
    JsonWriter json(context.out);
    if (context.options.bJson) {
        json.beginArray();
    }
    for (const std::string& name : factory.getProcessorNames()) {
        const ProcessorFactory::ProcessorInfo info = factory.getProcessorInfo(name);
        if (context.options.bJson) {
            json.beginObject();
            writeMembers(json, name, info);
            json.endObject();
        } else {
            printProcessor(context.out, name, info);
        }
    }
    if (context.options.bJson) {
        json.endArray();
    }
}

void showProcessor(const std::string& name, CommandContext& context)
{
    const ProcessorFactory::ProcessorInfo info = ProcessorFactory::getInstance().getProcessorInfo(name);
    const boost::shared_ptr<processor::BaseProcessor> processor = makeProcessor(name);
    if (!context.options.bJson) {
        printProcessor(context.out, name, info);
        context.out << describeAttributes(*processor);
        return;
    }
    JsonWriter json(context.out);
    json.beginObject();
    writeMembers(json, name, info);
    json.key("attributes");
    writeAttributes(json, *processor);
    json.endObject();
}

constexpr VerbRow<std::string> g_row = {
    .name = "processors",
    .summary = "List the processors by name, with tool tip, library and header",
    .operands =
        [](OptionList& list, std::string& name) {
            list.add("PROCESSOR", name, "Tell this one alone, with its attributes").valueName(" ");
        },
    .run =
        [](const std::string& name, CommandContext& context) {
            name.empty() ? listProcessors(context) : showProcessor(findProcessor(name), context);
        }};

} // namespace

extern const Verb g_processors;
constinit const Verb g_processors = verbOf<g_row>();

} // namespace orlix::cli
