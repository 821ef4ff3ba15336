// Every kernel of BuildLines2dImgLvl3 by itself: what it draws, and that it stays within what it may touch.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/LineOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "ORLIXIPLUtility/UntypedKernelChecks.h"

#include <limits>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using testing::Set;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr auto g_sync = core::eSynchroType::eSynchroSync;
constexpr float g_infinity = std::numeric_limits<float>::infinity();
constexpr float g_nan = std::numeric_limits<float>::quiet_NaN();
const std::vector<Set> g_sets = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2,
                                 eInstructionSet::eAVX512};

TEST(BuildLines2dImgKernelsTest, oneRowASet)
{
    testing::expectOneRowASet<BuildLines2dImgLvl3>(g_sets);
}

TEST(BuildLines2dImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<BuildLines2dImgLvl3>(g_sets);
}

TEST(BuildLines2dImgKernelsTest, everySetAndLengthStaysWithinItsElements)
{
    testing::forEachSet<BuildLines2dImgLvl3>(g_sets, [](Set) {
        for (unsigned long length = 0; length <= 3 * 64 + 1; ++length) {
            for (const testing::WrapForm& form :
                 {testing::WrapForm{testing::GuardEdge::eEnd},
                  testing::WrapForm{testing::GuardEdge::eBegin, length % 5, 0, 1 + length % 3, false}}) {
                const testing::WatchedImage out(*geometry2d(g_binary, length, 3), form);
                buildLines2dImg(0.7F, 3.5F, out.get());
                ASSERT_TRUE(hasLines(*out.get(), 0.7F, 3.5F));
                ASSERT_TRUE(out.isOutsideIntact());
            }
        }
    });
}

/// An owned line has room behind it, and shows what is written there: nothing.
TEST(BuildLines2dImgKernelsTest, everySetLeavesTheRoomBehindAsItIs)
{
    testing::forEachSet<BuildLines2dImgLvl3>(g_sets, [](Set) {
        for (const float offset : {0.0F, 0.5F, 2.0F}) {
            const ImagePtr out = image::createImage(*geometry2d(g_binary, 71, 1));
            std::byte* const first = out->accessRow(0, 0, 0, 0);
            std::fill_n(first, 71 + 64, std::byte{0xA7});
            buildLines2dImg(1.0F, offset, out);
            EXPECT_TRUE(hasLines(*out, 1.0F, offset));
            EXPECT_EQ(std::count(first + 71, first + 71 + 64, std::byte{0xA7}), 64);
        }
    });
}

TEST(BuildLines2dImgKernelsTest, everySetGivesTheSamePixelsForAnyAngleAndOffset)
{
    testing::forEachSet<BuildLines2dImgLvl3>(g_sets, [](Set) {
        for (const float theta : {0.0F, -0.0F, 0.5F, 1.5707964F, -0.78539819F, 3.1415927F, -2.0F, 100.0F, 1e10F}) {
            for (const float offset : {1.0F, 1.0000001F, 1.5F, 2.0F, 3.0F, 7.3F, 20.0F, 1000.0F, 1e20F, 3e38F}) {
                const ImagePtr out = testing::makeRandom(*geometry2d(g_binary, 131, 77));
                buildLines2dImg(theta, offset, out);
                ASSERT_TRUE(hasLines(*out, theta, offset));
            }
        }
    });
}

TEST(BuildLines2dImgKernelsTest, everySetTakesOffsetsThatAreNone)
{
    testing::forEachSet<BuildLines2dImgLvl3>(g_sets, [](Set) {
        const auto nbSet = [](float theta, float offset) {
            const ImagePtr out = testing::makeRandom(*geometry2d(g_binary, 67, 5));
            buildLines2dImg(theta, offset, out);
            EXPECT_TRUE(hasLines(*out, theta, offset));
            const std::vector<std::byte> bytes = testing::bytesOf(*out);
            return std::count(bytes.begin(), bytes.end(), std::byte{1});
        };
        for (const float theta : {0.0F, 0.3F, 1.5707964F}) {
            for (const float none : {0.0F, -0.0F, -1e-40F, -0.1F, -0.25F, -3.0F, g_infinity, -g_infinity, g_nan}) {
                EXPECT_EQ(nbSet(theta, none), 0) << theta << ", " << none;
            }
            for (const float dense : {1e-45F, 1e-38F, 1e-10F, 0.1F, 0.5F, 0.7F, 0.99999994F}) {
                EXPECT_EQ(nbSet(theta, dense), 67 * 5) << theta << ", " << dense;
            }
        }
        for (const float theta : {g_infinity, -g_infinity, g_nan}) {
            for (const float offset : {0.0F, 0.5F, 1.0F, 4.0F, g_nan}) {
                EXPECT_EQ(nbSet(theta, offset), 0) << theta << ", " << offset;
            }
        }
    });
}

TEST(BuildLines2dImgKernelsTest, anyStripIsThatPartOfThePlan)
{
    testing::forEachSet<BuildLines2dImgLvl3>(g_sets, [](Set) {
        const auto level = testing::makeInitialised<BuildLines2dImgLvl3>();
        level->set<attr::InTheta>(0.4F);
        level->set<attr::InOffset>(5.25);
        const ImagePtr whole = image::createImage(*geometry2d(g_binary, 53, 41));
        for (const auto& [start, size] : {std::pair{0UL, 41UL}, {0UL, 1UL}, {40UL, 1UL}, {7UL, 20UL}, {13UL, 0UL}}) {
            testing::fillRandom(*whole, start);
            const ImagePtr before = testing::plainCopy(*whole);
            level->set<attr::OutBinYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*whole, start, size));
            ASSERT_TRUE(level->run(g_sync));
            const Lines2d lines(53, 41, 0.4F, 5.25F);
            const auto* const old = image::planData<unsigned char>(*before, 0, 0, 0);
            EXPECT_TRUE(isDrawn(*whole,
                                [&, first = start, end = start + size](unsigned long x, unsigned long y,
                                                                       unsigned long) -> unsigned char {
                                    return y >= first && y < end ? lines.at(x, y) : old[53 * y + x];
                                }));
        }
    });
}

} // namespace
} // namespace orlix::imaproc::util::test
