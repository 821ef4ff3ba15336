// What the tests of an operator need of its kernels where no element type chooses them.
#pragma once

#include "ORLIXIPLUtility/KernelChecks.h"

namespace orlix::testing {

inline processor::DataTypeIdentifierColl noType()
{
    processor::DataTypeIdentifierColl types;
    types.init();
    return types;
}

/// The set whose kernel runs at present.
template <class TAlgorithm>
eInstructionSet runningSet()
{
    const auto* row = TAlgorithm::accessFunctionSelector().select(noType(), TAlgorithm::accessForcedInstructionSets());
    return row == nullptr ? eInstructionSet() : row->getInstructionSets().getHighest();
}

/// The class has one kernel for each of the sets that this processor has, in their order.
template <class TAlgorithm>
void expectOneRowASet(const std::vector<Set>& sets)
{
    std::vector<std::pair<unsigned, Set>> expected;
    for (const Set set : sets) {
        if (core::isAvailable(set)) {
            expected.emplace_back(noType().getKey(), set);
        }
    }
    std::vector<std::pair<unsigned, Set>> found;
    for (const processor::AlgorithmFunctionIdentifier& row : TAlgorithm::accessFunctionSelector().getFunctions()) {
        found.emplace_back(row.getDataTypes().getKey(), row.getInstructionSets().getHighest());
    }
    EXPECT_EQ(found, expected);
}

/// The highest of the sets runs that is not above the one that the environment forces.
template <class TAlgorithm>
void expectForcedSetRuns(const std::vector<Set>& sets)
{
    const std::optional<eInstructionSet> forced = getForcedInstructionSet();
    Set expected = eInstructionSet::eNone;
    for (const Set set : sets) {
        if (core::isAvailable(set) && (!forced || set <= *forced)) {
            expected = set;
        }
    }
    EXPECT_EQ(runningSet<TAlgorithm>(), expected);
}

/// Calls `check(set)` for every kernel that this processor can run, with its set forced on the class.
template <class TAlgorithm>
void forEachSet(const std::vector<Set>& sets, const std::function<void(Set)>& check)
{
    for (const Set set : sets) {
        if (core::isAvailable(set)) {
            const ForcedSet<TAlgorithm> forced(set);
            ASSERT_EQ(runningSet<TAlgorithm>(), set);
            SCOPED_TRACE(core::getInstructionSetName(set));
            check(set);
        }
    }
}

} // namespace orlix::testing
