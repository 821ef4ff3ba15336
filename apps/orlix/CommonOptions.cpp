// Options that every verb has.
#include "CommonOptions.h"

#include "CommandMessages.h"
#include "NearNames.h"

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::cli {

namespace {

std::vector<std::string> namesOf(const std::vector<eInstructionSet>& sets)
{
    std::vector<std::string> names;
    for (const eInstructionSet& set : sets) {
        names.push_back(core::getInstructionSetName(set));
    }
    return names;
}

eInstructionSet instructionSetNamed(const std::string& name)
{
    const std::optional<eInstructionSet> set = core::findInstructionSet(name);
    if (!set) {
        const std::vector<std::string> names = namesOf(core::getAvailableInstructionSets());
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eUnknownInstructionSet, name, nearHint(name, names),
                               joinNames(names));
    }
    if (!core::isAvailable(*set)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eInstructionSetMissing, core::getInstructionSetName(*set),
                               joinNames(namesOf(core::getAvailableInstructionSets())));
    }
    return *set;
}

} // namespace

void addCommonOptions(OptionList& list, CommonOptions& options)
{
    const std::string group = "Options of all verbs";
    list.addNumber("--threads", options.nbThreads, {.smallest = 1, .largest = core::getMostThreads()},
                   "Threads that work at a time; default: all that this process\nmay use")
        .valueName("N")
        .group(group);
    const auto takeSet = [&options](const std::string& text) {
        options.instructionSet = text; // judged when all have been given: the last one wins
        return std::nullopt;
    };
    list.add("--instruction-set", takeSet,
             "Use no kernel above this instruction set: plain, SSE2, AVX, AVX2\n"
             "or AVX512; default: the best that this processor has")
        .valueName("NAME")
        .group(group);
    list.addFlag("--json", options.bJson, "Print the result as JSON (UTF-8)").group(group);
    list.addFlag("--quiet", options.bQuiet, "Show no progress; it is shown on terminals only").group(group);
}

void applyCommonOptions(const CommonOptions& options)
{
    if (options.nbThreads != 0) {
        core::setNbThreads(options.nbThreads);
    }
    if (options.instructionSet) {
        processor::InstructionSetsIdentifier sets;
        sets.init(instructionSetNamed(*options.instructionSet));
        processor::AlgorithmFunctionSelector::setDefaultForcedInstructionSets(sets);
    }
}

} // namespace orlix::cli
