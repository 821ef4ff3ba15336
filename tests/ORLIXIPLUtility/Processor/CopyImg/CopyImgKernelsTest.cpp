// Every kernel of CopyImgLvl3 by itself, between forbidden pages.
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/KernelChecks.h"
#include "support/Images.h"
#include "support/SameImages.h"
#include "support/TestSettings.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

constexpr eInstructionSet::domain g_sets[] = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX,
                                              eInstructionSet::eAVX2, eInstructionSet::eAVX512};

/// Has a file of the set a kernel for the type? As the table of the operator's kernels says.
bool hasRow(testing::Set set, testing::BufferType type)
{
    const bool bReal = type == eImageBufferType::Real32;
    return set == eInstructionSet::eAVX ? bReal : set != eInstructionSet::eAVX2 || !bReal;
}

const testing::KernelTable g_table{{std::begin(g_sets), std::end(g_sets)}, hasRow};

TEST(CopyImgKernelsTest, rowsInTheOrderOfTheTable)
{
    testing::expectRows<CopyImgLvl3>(g_table);
}

TEST(CopyImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<CopyImgLvl3>(g_table);
}

TEST(CopyImgKernelsTest, everySetTypeAndLengthStaysWithinItsElements)
{
    for (const eInstructionSet::domain set : g_sets) {
        if (!core::isAvailable(set)) {
            continue;
        }
        const testing::ForcedSet<CopyImgLvl3> forced(set);
        for (const eImageBufferType type : image::g_allBufferTypes) {
            if (!hasRow(set, type)) {
                continue;
            }
            ASSERT_EQ(testing::runningSet<CopyImgLvl3>(type), set);
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
