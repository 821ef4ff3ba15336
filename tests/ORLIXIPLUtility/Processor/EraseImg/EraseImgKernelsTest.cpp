// Every kernel of EraseImgLvl3 by itself: how far it writes, and that it stays within what it may touch.
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXIPLUtility/Processor/EraseImg/EraseOracle.h"
#include "support/TestSettings.h"

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;

constexpr eInstructionSet::domain g_sets[] = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX,
                                              eInstructionSet::eAVX2, eInstructionSet::eAVX512};

/// Has a file of the set a kernel for the type? As the table of the operator's kernels says.
bool hasRow(testing::Set set, testing::BufferType type)
{
    const bool bReal = type == eImageBufferType::Real32;
    const bool bEvery = set == eInstructionSet::eNone || set == eInstructionSet::eSSE2;
    return bEvery || (set == eInstructionSet::eAVX) == bReal;
}

unsigned long roundOf(eInstructionSet::domain set)
{
    switch (set) {
    case eInstructionSet::eSSE2: return 16;
    case eInstructionSet::eAVX:
    case eInstructionSet::eAVX2: return 32;
    case eInstructionSet::eAVX512: return 64;
    default: return 1;
    }
}

const testing::KernelTable g_table{{std::begin(g_sets), std::end(g_sets)}, hasRow};

TEST(EraseImgKernelsTest, rowsInTheOrderOfTheTable)
{
    testing::expectRows<EraseImgLvl3>(g_table);
}

TEST(EraseImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<EraseImgLvl3>(g_table);
}

/// Whole rounds: an owned line has room behind it, where the last round may end, and shows where it does.
TEST(EraseImgKernelsTest, writesWholeRoundsAndNoMore)
{
    testing::forEachKernel<EraseImgLvl3>(g_table, [](eInstructionSet::domain set, eImageBufferType type) {
        const unsigned long size = image::elementSize(type);
        const unsigned long round = roundOf(set);
        const std::vector<std::byte> element = expectedElement(type, 300.25);
        for (unsigned long length = 0; length <= 3 * round + 17; ++length) {
            const ImagePtr image = image::createImage(*image::geometry2d(type, length, 1));
            std::byte* const first = length > 0 ? image->accessRow(0, 0, 0, 0) : nullptr;
            const unsigned long nbReachable = length > 0 ? length + 64 : 0;
            for (unsigned long i = 0; i < nbReachable * size; ++i) {
                first[i] = std::byte{0xA7};
            }
            eraseImg(image, 300.25);
            const unsigned long nbWritten = (length + round - 1) / round * round;
            for (unsigned long i = 0; i < nbReachable * size; ++i) {
                const std::byte expected = i < nbWritten * size ? element[i % size] : std::byte{0xA7};
                ASSERT_EQ(first[i], expected) << "length " << length << ", byte " << i;
            }
        }
    });
}

TEST(EraseImgKernelsTest, seventeenElementsAreTwoRoundsOfSSE2)
{
    if (!core::isAvailable(eInstructionSet::eSSE2)) {
        GTEST_SKIP() << "this processor has no SSE2";
    }
    EraseImgLvl3::forceInstructionSets({eInstructionSet::eSSE2});
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 17, 1));
    std::byte* const first = image->accessRow(0, 0, 0, 0);
    std::fill_n(first, 17 + 64, std::byte{1});
    eraseImg(image, 9.0);
    EraseImgLvl3::releaseForcedInstructionSets();
    EXPECT_EQ(std::count(first, first + 17 + 64, std::byte{9}), 32);
    EXPECT_EQ(first[31], std::byte{9});
    EXPECT_EQ(first[32], std::byte{1});
}

TEST(EraseImgKernelsTest, everySetTypeAndLengthStaysWithinItsElements)
{
    testing::forEachKernel<EraseImgLvl3>(g_table, [](eInstructionSet::domain, eImageBufferType type) {
        for (unsigned long length = 0; length <= 3 * 64 + 1; ++length) {
            const auto geometry = image::geometry2d(type, length, 1);
            for (const testing::WrapForm& form :
                 {testing::WrapForm{testing::GuardEdge::eEnd},
                  testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1 + length % 3, false}}) {
                const testing::WatchedImage out(*geometry, form);
                eraseImg(out.get(), -2.5);
                ASSERT_TRUE(isErased(*out.get(), -2.5));
                ASSERT_TRUE(out.isOutsideIntact());
            }
        }
    });
}

} // namespace
} // namespace orlix::imaproc::util::test
