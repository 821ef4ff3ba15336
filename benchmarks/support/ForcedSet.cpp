#include "support/ForcedSet.h"

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"

namespace orlix::bench {

void forceSet(const eInstructionSet& set)
{
    processor::InstructionSetsIdentifier sets;
    sets.init(set);
    processor::AlgorithmFunctionSelector::setDefaultForcedInstructionSets(sets);
}

void unforceSet()
{
    processor::AlgorithmFunctionSelector::setDefaultForcedInstructionSets({});
}

} // namespace orlix::bench
