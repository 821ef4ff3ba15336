// Every kernel of CopyImgLvl3 by itself, between forbidden pages.
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "support/Images.h"
#include "support/SameImages.h"
#include "support/TestSettings.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using processor::AlgorithmFunctionIdentifier;
using processor::InstructionSetsIdentifier;

constexpr eInstructionSet::domain g_sets[] = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX,
                                              eInstructionSet::eAVX2, eInstructionSet::eAVX512};

/// Has a file of the set a kernel for the type? As the table of the operator's kernels says.
bool hasRow(eInstructionSet::domain set, eImageBufferType type)
{
    const bool bReal = type == eImageBufferType::Real32;
    return set == eInstructionSet::eAVX ? bReal : set != eInstructionSet::eAVX2 || !bReal;
}

eInstructionSet selectedSet(eImageBufferType type, const InstructionSetsIdentifier& forced)
{
    processor::DataTypeIdentifierColl types;
    types.init(ImageBufferTypeIdentifier(type));
    const AlgorithmFunctionIdentifier* row = CopyImgLvl3::accessFunctionSelector().select(types, forced);
    return row == nullptr ? eInstructionSet() : row->getInstructionSets().getHighest();
}

/// Forces a set on the class for as long as it lives.
class ForcedSet
{
public:
    explicit ForcedSet(eInstructionSet::domain set) { CopyImgLvl3::forceInstructionSets({set}); }
    ~ForcedSet() { CopyImgLvl3::releaseForcedInstructionSets(); }
};

TEST(CopyImgKernelsTest, rowsInTheOrderOfTheTable)
{
    std::vector<std::pair<unsigned, eInstructionSet::domain>> expected;
    for (const eInstructionSet::domain set : g_sets) {
        for (const eImageBufferType::domain type : image::g_allBufferTypes) {
            if (core::isAvailable(set) && hasRow(set, type)) {
                processor::DataTypeIdentifierColl types;
                types.init(ImageBufferTypeIdentifier(type));
                expected.emplace_back(types.getKey(), set);
            }
        }
    }
    std::vector<std::pair<unsigned, eInstructionSet::domain>> found;
    for (const AlgorithmFunctionIdentifier& row : CopyImgLvl3::accessFunctionSelector().getFunctions()) {
        found.emplace_back(row.getDataTypes().getKey(), row.getInstructionSets().getHighest());
    }
    EXPECT_EQ(found, expected);
}

TEST(CopyImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    const std::optional<eInstructionSet> forced = testing::getForcedInstructionSet();
    for (const eImageBufferType type : image::g_allBufferTypes) {
        eInstructionSet::domain expected = eInstructionSet::eNone;
        for (const eInstructionSet::domain set : g_sets) {
            if (core::isAvailable(set) && hasRow(set, type) && (!forced || set <= *forced)) {
                expected = set;
            }
        }
        EXPECT_EQ(selectedSet(type, CopyImgLvl3::accessForcedInstructionSets()), expected)
            << image::getBufferTypeName(type);
    }
}

TEST(CopyImgKernelsTest, everySetTypeAndLengthStaysWithinItsElements)
{
    for (const eInstructionSet::domain set : g_sets) {
        if (!core::isAvailable(set)) {
            continue;
        }
        const ForcedSet forced(set);
        for (const eImageBufferType type : image::g_allBufferTypes) {
            if (!hasRow(set, type)) {
                continue;
            }
            ASSERT_EQ(selectedSet(type, CopyImgLvl3::accessForcedInstructionSets()), set);
            // A copy kernel has a tail of its own, so a strip of memory without room behind is handed over as it is
            // where the length is a whole number of 64 elements, and as a scratch copy elsewhere.
            for (unsigned long length = 0; length <= 3 * 64 + 1; ++length) {
                const auto geometry = image::geometry2d(type, length, 1);
                for (const testing::WrapForm& form : {testing::WrapForm{testing::GuardEdge::eEnd},
                                                      testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1, false}}) {
                    const testing::WatchedImage in(*geometry, form);
                    const testing::WatchedImage out(*geometry, form);
                    testing::fillRandom(*in.get(), length);
                    copyImg(in.get(), out.get());
                    ASSERT_TRUE(testing::sameImages(*in.get(), *out.get()));
                    ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact());
                }
            }
        }
    }
}

} // namespace
} // namespace orlix::imaproc::util
