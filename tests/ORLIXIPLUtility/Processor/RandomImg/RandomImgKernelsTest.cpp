// Every kernel of RandomImgLvl3 by itself: what it writes, and that it stays within what it may touch.
#include "ORLIXIPLUtility/Processor/RandomImages.h"

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;

const testing::KernelTable g_table{
    {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2, eInstructionSet::eAVX512}};

TEST(RandomImgKernelsTest, rowsInTheOrderOfTheTable)
{
    testing::expectRows<RandomImgLvl3>(g_table);
}

TEST(RandomImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<RandomImgLvl3>(g_table);
}

TEST(RandomImgKernelsTest, everySetTypeAndLength)
{
    const RandomRunScope scope(runOfChecks());
    testing::forEachKernel<RandomImgLvl3>(g_table, [](eInstructionSet::domain, eImageBufferType type) {
        const double max = image::getMaxValue(type);
        for (unsigned long length = 0; length <= 3 * 64 + 1; ++length) {
            const auto geometry = image::geometry2d(type, length, 1);
            for (const testing::WrapForm& form :
                 {testing::WrapForm{testing::GuardEdge::eEnd},
                  testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1 + length % 3, false}}) {
                const testing::WatchedImage out(*geometry, form);
                randomImg(attr::createRange(0, max), out.get());
                ASSERT_TRUE(out.isOutsideIntact());
                ASSERT_TRUE(isRandom<RandomImgLvl3>(
                    *out.get(), runOfChecks(),
                    [max]<class T>(eInstructionSet::domain set, const std::vector<unsigned>& states, unsigned long nb) {
                        return simd::test::uniformOracle<T>(set, 0, static_cast<T>(max), states, nb);
                    }));
            }
        }
    });
}

} // namespace
} // namespace orlix::imaproc::util::test
