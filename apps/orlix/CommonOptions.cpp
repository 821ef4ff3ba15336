// Options that every verb has.
#include "CommonOptions.h"

#include "CommandMessages.h"

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::cli {

namespace {

std::string namesOf(const std::vector<eInstructionSet>& sets)
{
    std::string names;
    for (const eInstructionSet& set : sets) {
        names.append(names.empty() ? "" : ", ").append(core::getInstructionSetName(set));
    }
    return names;
}

eInstructionSet instructionSetNamed(const std::string& name)
{
    const std::optional<eInstructionSet> set = core::findInstructionSet(name);
    if (!set) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eUnknownInstructionSet, name,
                               namesOf(core::getAvailableInstructionSets()));
    }
    if (!core::isAvailable(*set)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eInstructionSetMissing, core::getInstructionSetName(*set),
                               namesOf(core::getAvailableInstructionSets()));
    }
    return *set;
}

} // namespace

void addCommonOptions(OptionList& list, CommonOptions& options)
{
    const std::string group = "Options of all verbs";
    list.add("--threads", options.nbThreads,
             "Threads that work at a time, at most " + std::to_string(core::getMostThreads()) +
                 "; default, and 0:\nall that this process may use")
        .valueName("N")
        .atMost(core::getMostThreads())
        .group(group);
    list.add("--instruction-set", options.instructionSet,
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
    if (!options.instructionSet.empty()) {
        processor::InstructionSetsIdentifier sets;
        sets.init(instructionSetNamed(options.instructionSet));
        processor::AlgorithmFunctionSelector::setDefaultForcedInstructionSets(sets);
    }
}

} // namespace orlix::cli
