// What the tests of every operator need of its kernels, where one element type chooses them.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPL/ORLIXImageProcessing/ImageBufferTypeIdentifier.h"
#include "support/Images.h"
#include "support/TestSettings.h"

#include <functional>

namespace orlix::testing {

using Set = eInstructionSet::domain;
using BufferType = image::eImageBufferType::domain;

/// Forces a set on a class of kernels for as long as it lives.
template <class TAlgorithm>
class ForcedSet
{
public:
    explicit ForcedSet(Set set) { TAlgorithm::forceInstructionSets({set}); }
    ~ForcedSet() { TAlgorithm::releaseForcedInstructionSets(); }
    ForcedSet(const ForcedSet&) = delete;
    ForcedSet& operator=(const ForcedSet&) = delete;
};

/// The table of an operator's kernels as it is told: its sets in their order, and which of them have which types.
struct KernelTable
{
    std::vector<Set> sets;
    bool (*hasRow)(Set set, BufferType type) = [](Set, BufferType) { return true; };
};

inline processor::DataTypeIdentifierColl identifierOf(BufferType type)
{
    processor::DataTypeIdentifierColl types;
    types.init(imaproc::ImageBufferTypeIdentifier(type));
    return types;
}

/// The set whose kernel runs on a type at present.
template <class TAlgorithm>
eInstructionSet runningSet(BufferType type)
{
    const auto* row =
        TAlgorithm::accessFunctionSelector().select(identifierOf(type), TAlgorithm::accessForcedInstructionSets());
    return row == nullptr ? eInstructionSet() : row->getInstructionSets().getHighest();
}

/// The class has the rows of the table, in its order, for the sets that this processor has.
template <class TAlgorithm>
void expectRows(const KernelTable& table)
{
    std::vector<std::pair<unsigned, Set>> expected;
    for (const Set set : table.sets) {
        for (const BufferType type : image::g_allBufferTypes) {
            if (core::isAvailable(set) && table.hasRow(set, type)) {
                expected.emplace_back(identifierOf(type).getKey(), set);
            }
        }
    }
    std::vector<std::pair<unsigned, Set>> found;
    for (const processor::AlgorithmFunctionIdentifier& row : TAlgorithm::accessFunctionSelector().getFunctions()) {
        found.emplace_back(row.getDataTypes().getKey(), row.getInstructionSets().getHighest());
    }
    EXPECT_EQ(found, expected);
}

/// For every type the highest set of the table runs that is not above the one that the environment forces.
template <class TAlgorithm>
void expectForcedSetRuns(const KernelTable& table)
{
    const std::optional<eInstructionSet> forced = getForcedInstructionSet();
    for (const BufferType type : image::g_allBufferTypes) {
        Set expected = eInstructionSet::eNone;
        for (const Set set : table.sets) {
            if (core::isAvailable(set) && table.hasRow(set, type) && (!forced || set <= *forced)) {
                expected = set;
            }
        }
        EXPECT_EQ(runningSet<TAlgorithm>(type), expected) << image::getBufferTypeName(type);
    }
}

/// Calls `check(set, type)` for every kernel that this processor can run, with its set forced on the class.
template <class TAlgorithm>
void forEachKernel(const KernelTable& table, const std::function<void(Set, BufferType)>& check)
{
    for (const Set set : table.sets) {
        const ForcedSet<TAlgorithm> forced(set);
        for (const BufferType type : image::g_allBufferTypes) {
            if (core::isAvailable(set) && table.hasRow(set, type)) {
                ASSERT_EQ(runningSet<TAlgorithm>(type), set);
                SCOPED_TRACE(std::string(image::getBufferTypeName(type)) + " with " + core::getInstructionSetName(set));
                check(set, type);
            }
        }
    }
}

} // namespace orlix::testing
