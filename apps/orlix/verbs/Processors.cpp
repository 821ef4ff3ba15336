// orlix processors: what the processor factory knows.
#include "JsonWriter.h"
#include "PlainText.h"
#include "Verb.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"

namespace orlix::cli {

namespace {

using processor::ProcessorFactory;

void printProcessor(std::ostream& out, const std::string& name, const ProcessorFactory::ProcessorInfo& info)
{
    out << printable(name) << "\n  " << printable(info.toolTip) << "\n  " << printable(info.libraryName) << ", "
        << printable(info.headerPath.string()) << "\n";
}

void writeProcessor(JsonWriter& json, const std::string& name, const ProcessorFactory::ProcessorInfo& info)
{
    json.beginObject();
    json.member("name", name);
    json.member("toolTip", info.toolTip);
    json.member("library", info.libraryName);
    json.member("header", info.headerPath.string());
    json.endObject();
}

void runProcessors(CommandContext& context)
{
    const ProcessorFactory& factory = ProcessorFactory::getInstance();
    JsonWriter json(context.out);
    if (context.options.bJson) {
        json.beginArray();
    }
    for (const std::string& name : factory.getProcessorNames()) {
        const ProcessorFactory::ProcessorInfo info = factory.getProcessorInfo(name);
        context.options.bJson ? writeProcessor(json, name, info) : printProcessor(context.out, name, info);
    }
    if (context.options.bJson) {
        json.endArray();
    }
}

VerbRun setUpProcessors(CLI::App&)
{
    return [](CommandContext& context) { runProcessors(context); };
}

} // namespace

extern const Verb g_processors;
constinit const Verb g_processors = {"processors", "List the processors by name, with tool tip, library and header",
                                     &setUpProcessors};

} // namespace orlix::cli
