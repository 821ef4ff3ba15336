// Every kernel of BuildLines3dImgLvl3 by itself: what it draws, and that it stays within what it may touch.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/LineOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "ORLIXIPLUtility/UntypedKernelChecks.h"

#include <array>
#include <limits>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using image::geometry3d;
using testing::Set;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr auto g_sync = core::eSynchroType::eSynchroSync;
constexpr float g_infinity = std::numeric_limits<float>::infinity();
constexpr float g_nan = std::numeric_limits<float>::quiet_NaN();
constexpr LineAngles g_angles{0.4F, -0.7F, 0.9F};
const std::vector<Set> g_sets = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2,
                                 eInstructionSet::eAVX512};

void draw(const LineAngles& angles, float offset, const ImagePtr& out)
{
    buildLines3dImg(angles.theta, angles.phi, angles.alpha, offset, out);
}

TEST(BuildLines3dImgKernelsTest, oneRowASet)
{
    testing::expectOneRowASet<BuildLines3dImgLvl3>(g_sets);
}

TEST(BuildLines3dImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<BuildLines3dImgLvl3>(g_sets);
}

TEST(BuildLines3dImgKernelsTest, everySetAndLengthStaysWithinItsElements)
{
    testing::forEachSet<BuildLines3dImgLvl3>(g_sets, [](Set) {
        for (unsigned long length = 0; length <= 2 * 64 + 1; ++length) {
            for (const testing::WrapForm& form :
                 {testing::WrapForm{testing::GuardEdge::eEnd},
                  testing::WrapForm{testing::GuardEdge::eBegin, length % 5, length % 7, 1 + length % 3, false}}) {
                const testing::WatchedImage out(*geometry3d(g_binary, length, 3, 4), form);
                draw(g_angles, 3.5F, out.get());
                ASSERT_TRUE(hasLines(*out.get(), g_angles, 3.5F));
                ASSERT_TRUE(out.isOutsideIntact());
            }
        }
    });
}

TEST(BuildLines3dImgKernelsTest, everySetGivesTheSameVoxelsForAnyAnglesAndOffset)
{
    testing::forEachSet<BuildLines3dImgLvl3>(g_sets, [](Set) {
        for (const LineAngles& angles : {LineAngles{0.0F, 0.0F, 0.0F},
                                         {0.0F, 0.0F, 0.5F},
                                         {0.0F, 0.5F, 0.0F},
                                         {0.5F, 0.0F, 0.0F},
                                         {1.5707964F, 1.5707964F, 1.5707964F},
                                         {-2.0F, 3.0F, 100.0F},
                                         {0.0F, 0.0F, 0.78539819F}}) {
            for (const float offset : {0.51F, 0.72F, 0.9F, 1.0F, 1.5F, 2.0F, 7.3F, 20.0F, 1e20F}) {
                const ImagePtr out = testing::makeRandom(*geometry3d(g_binary, 67, 23, 9));
                draw(angles, offset, out);
                ASSERT_TRUE(hasLines(*out, angles, offset));
            }
        }
    });
}

/// Where voxels far from any line are passed over, and on either side of what that is limited to.
TEST(BuildLines3dImgKernelsTest, everySetSetsNoLessWhereItPassesOverMost)
{
    testing::forEachSet<BuildLines3dImgLvl3>(g_sets, [](Set) {
        for (const auto& [x, y, z] : {std::array{2730UL, 3UL, 2UL}, {2731, 3, 2}, {5, 2730, 2}, {5, 2, 2731}}) {
            for (const LineAngles& angles :
                 {g_angles, {0.0F, 0.0F, 0.0F}, {2.1F, 0.003F, -0.8F}, {1e-30F, 3.1F, 0.0F}}) {
                for (const float offset : {5.9F, 6.0F, 6.7F, 21.0F, 333.3F, 65536.0F, 65600.0F}) {
                    const ImagePtr out = testing::makeRandom(*geometry3d(g_binary, x, y, z));
                    draw(angles, offset, out);
                    ASSERT_TRUE(hasLines(*out, angles, offset)) << x << "x" << y << "x" << z << ", " << offset;
                }
            }
        }
    });
}

TEST(BuildLines3dImgKernelsTest, everySetTakesOffsetsThatAreNone)
{
    testing::forEachSet<BuildLines3dImgLvl3>(g_sets, [](Set) {
        const auto nbSet = [](const LineAngles& angles, float offset) {
            const ImagePtr out = testing::makeRandom(*geometry3d(g_binary, 33, 5, 2));
            draw(angles, offset, out);
            EXPECT_TRUE(hasLines(*out, angles, offset));
            const std::vector<std::byte> bytes = testing::bytesOf(*out);
            return std::count(bytes.begin(), bytes.end(), std::byte{1});
        };
        for (const LineAngles& angles : {LineAngles{0.0F, 0.0F, 0.0F}, g_angles}) {
            for (const float none : {0.0F, -0.0F, -1e-40F, -0.1F, -3.0F, g_infinity, -g_infinity, g_nan}) {
                EXPECT_EQ(nbSet(angles, none), 0) << none;
            }
            for (const float dense : {1e-45F, 1e-38F, 1e-10F, 0.1F, 0.4999F, 0.5F, 0.7F}) {
                EXPECT_EQ(nbSet(angles, dense), 33 * 5 * 2) << dense;
            }
        }
        EXPECT_EQ(nbSet({0.4F, 0.7F, 0.0F}, 0.99F), 33 * 5 * 2);
        for (const float bad : {g_infinity, -g_infinity, g_nan}) {
            for (const LineAngles& angles : {LineAngles{bad, 0.0F, 0.0F}, {0.0F, bad, 0.0F}, {0.0F, 0.0F, bad}}) {
                for (const float offset : {0.0F, 0.3F, 4.0F}) {
                    EXPECT_EQ(nbSet(angles, offset), 0) << bad << ", " << offset;
                }
            }
        }
    });
}

TEST(BuildLines3dImgKernelsTest, anyStripIsThatPartOfTheVolume)
{
    testing::forEachSet<BuildLines3dImgLvl3>(g_sets, [](Set) {
        const auto level = testing::makeInitialised<BuildLines3dImgLvl3>();
        level->set<attr::InTheta>(g_angles.theta);
        level->set<attr::InPhi>(g_angles.phi);
        level->set<attr::InAlpha>(g_angles.alpha);
        level->set<attr::InOffset>(4.25);
        const ImagePtr whole = image::createImage(*geometry3d(g_binary, 37, 11, 13));
        for (const auto& [start, size] : {std::pair{0UL, 13UL}, {0UL, 1UL}, {12UL, 1UL}, {4UL, 7UL}, {3UL, 0UL}}) {
            testing::fillRandom(*whole, start);
            const ImagePtr before = testing::plainCopy(*whole);
            level->set<attr::OutBinZStrip3d>(boost::make_shared<image::OutputImageZStrip3d>(*whole, start, size));
            ASSERT_TRUE(level->run(g_sync));
            const Lines3d lines(37, 11, 13, g_angles, 4.25F);
            EXPECT_TRUE(isDrawn(*whole,
                                [&, first = start, end = start + size](unsigned long x, unsigned long y,
                                                                       unsigned long z) -> unsigned char {
                                    return z >= first && z < end
                                               ? lines.at(x, y, z)
                                               : image::planData<unsigned char>(*before, z, 0, 0)[37 * y + x];
                                }));
        }
    });
}

} // namespace
} // namespace orlix::imaproc::util::test
