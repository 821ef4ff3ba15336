// Every kernel of GaussianRandomImgLvl3 by itself: what it writes, and that it stays within what it may touch.
#include "ORLIXIPLUtility/Processor/RandomImages.h"

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;

const testing::KernelTable g_table{
    {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2, eInstructionSet::eAVX512}};

TEST(GaussianRandomImgKernelsTest, rowsInTheOrderOfTheTable)
{
    testing::expectRows<GaussianRandomImgLvl3>(g_table);
}

TEST(GaussianRandomImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<GaussianRandomImgLvl3>(g_table);
}

TEST(GaussianRandomImgKernelsTest, everySetTypeAndLength)
{
    const RandomRunScope scope(runOfChecks());
    testing::forEachKernel<GaussianRandomImgLvl3>(g_table, [](eInstructionSet::domain, eImageBufferType type) {
        for (unsigned long length = 0; length <= 3 * 64 + 1; ++length) {
            const auto geometry = image::geometry2d(type, length, 1);
            for (const testing::WrapForm& form :
                 {testing::WrapForm{testing::GuardEdge::eEnd},
                  testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1 + length % 3, false}}) {
                const testing::WatchedImage out(*geometry, form);
                gaussianRandomImg(attr::createGaussianParameter(50, 30), out.get());
                ASSERT_TRUE(out.isOutsideIntact());
                ASSERT_TRUE(isRandom<GaussianRandomImgLvl3>(
                    *out.get(), runOfChecks(),
                    []<class T>(eInstructionSet::domain set, const std::vector<unsigned>& states, unsigned long nb) {
                        return simd::test::normalOracle<T>(set, 50, 30, states, nb);
                    }));
            }
        }
    });
}

} // namespace
} // namespace orlix::imaproc::util::test
