// Processors by the names that users give them.
#include "NamedProcessor.h"

#include "CommandMessages.h"
#include "NearNames.h"

#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::cli {

namespace {

std::string withoutNamespace(const std::string& name)
{
    const std::size_t colon = name.rfind("::");
    return colon == std::string::npos ? name : name.substr(colon + 2);
}

} // namespace

std::string findProcessor(const std::string& name)
{
    const processor::ProcessorFactory& factory = processor::ProcessorFactory::getInstance();
    if (factory.isRegistered(name)) {
        return name;
    }
    std::vector<std::string> meant;
    std::vector<std::string> shortNames;
    for (const std::string& known : factory.getProcessorNames()) {
        shortNames.push_back(withoutNamespace(known));
        if (shortNames.back() == name) {
            meant.push_back(known);
        }
    }
    if (meant.size() > 1) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eAmbiguousProcessor, name, joinNames(meant));
    }
    if (meant.empty()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eUnknownProcessor, name,
                               nearHint(withoutNamespace(name), shortNames));
    }
    return meant.front();
}

boost::shared_ptr<processor::BaseProcessor> makeProcessor(const std::string& factoryName)
{
    const boost::shared_ptr<processor::BaseProcessor> processor =
        processor::ProcessorFactory::getInstance().createProcessor(factoryName);
    // A class whose init fails says so again, as a text, when it is run.
    static_cast<void>(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    return processor;
}

} // namespace orlix::cli
