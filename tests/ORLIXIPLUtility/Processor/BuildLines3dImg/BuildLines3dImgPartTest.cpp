// buildLines3dImgPart: a part is what a cut of the whole would be.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/LineOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "ORLIXIPLUtility/UntypedKernelChecks.h"
#include "support/Executors.h"
#include "support/SameImages.h"

#include <rapidcheck.h>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using image::geometry3d;
using testing::messageOf;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr LineAngles g_angles{0.5F, -0.4F, 0.3F};
constexpr float g_offset = 5.75F;

void draw(const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first, float offset, const ImagePtr& part)
{
    buildLines3dImgPart(whole, first, g_angles.theta, g_angles.phi, g_angles.alpha, offset, part);
}

::testing::AssertionResult isPart(const image::BaseImage& part, const attr::Img3dSizeRecord& whole,
                                  const attr::Img3dOffsetRecord& first, float offset)
{
    const Lines3d lines(whole.X, whole.Y, whole.Z, g_angles, offset);
    return isDrawn(part, [&](unsigned long x, unsigned long y, unsigned long z) {
        return lines.at(first.X + x, first.Y + y, first.Z + z);
    });
}

TEST(BuildLines3dImgPartTest, slabsMakeUpTheWhole)
{
    const ImagePtr whole = buildLines3dImg(71, 33, 29, g_angles.theta, g_angles.phi, g_angles.alpha, g_offset);
    const std::vector<std::byte> expected = testing::bytesOf(*whole);
    for (const unsigned long nbPlans : {1UL, 4UL, 29UL}) {
        for (unsigned long firstZ = 0; firstZ < 29; firstZ += nbPlans) {
            const ImagePtr part = testing::makeRandom(*geometry3d(g_binary, 71, 33, std::min(nbPlans, 29 - firstZ)));
            draw({71, 33, 29}, {0, 0, firstZ}, g_offset, part);
            const std::vector<std::byte> bytes = testing::bytesOf(*part);
            ASSERT_EQ(std::memcmp(bytes.data(), expected.data() + 71 * 33 * firstZ, bytes.size()), 0) << firstZ;
        }
    }
}

TEST(BuildLines3dImgPartTest, anyPartOfAnyWhole)
{
    EXPECT_TRUE(rc::check("a part is a cut of the whole", [] {
        const auto upTo = [](unsigned long most) { return *rc::gen::inRange<unsigned long>(0, most + 1); };
        const attr::Img3dSizeRecord whole{upTo(200), upTo(30), upTo(12)};
        const attr::Img3dOffsetRecord first{upTo(whole.X), upTo(whole.Y), upTo(whole.Z)};
        image::VolumeGeometry volume;
        volume.init3d(upTo(whole.Z - first.Z));
        image::ColorGeometry colour;
        colour.initChannels(1 + upTo(1));
        image::TemporalGeometry temporal;
        temporal.initSequence(1 + upTo(1));
        const ImagePtr part =
            testing::makeRandom({g_binary, upTo(whole.X - first.X), upTo(whole.Y - first.Y), volume, colour, temporal});
        draw(whole, first, g_offset, part);
        RC_ASSERT(static_cast<bool>(isPart(*part, whole, first, g_offset)));
    }));
}

TEST(BuildLines3dImgPartTest, everySetAgreesFarAway)
{
    testing::forEachSet<BuildLines3dImgLvl3>(
        {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2, eInstructionSet::eAVX512},
        [](testing::Set) {
            for (const unsigned long from : {(1UL << 24) - 50, (1UL << 31) - 230, (1UL << 31) - 1, 1UL << 40}) {
                const attr::Img3dSizeRecord whole{2 * from + 1, 2 * from, 2 * from};
                const ImagePtr part = testing::makeRandom(*geometry3d(g_binary, 200, 2, 2));
                draw(whole, {from, from, from}, 6.0F, part);
                EXPECT_TRUE(isPart(*part, whole, {from, from, from}, 6.0F)) << from;
            }
        });
}

TEST(BuildLines3dImgPartTest, wrappedMemoryAndAnyExecutor)
{
    for (const testing::NamedExecutor& named : testing::makeAllExecutors()) {
        const testing::ScopedExecutor scope(named.executor);
        const testing::WatchedImage part(*geometry3d(g_binary, 123, 40, 17),
                                         {testing::GuardEdge::eBegin, 5, 9, 3, false});
        draw({300, 100, 60}, {77, 50, 43}, g_offset, part.get());
        EXPECT_TRUE(isPart(*part.get(), {300, 100, 60}, {77, 50, 43}, g_offset)) << named.name;
        EXPECT_TRUE(part.isOutsideIntact());
    }
}

TEST(BuildLines3dImgPartTest, wholeLinesAsOtherGeneratorsTakeThem)
{
    const ImagePtr part = testing::makeRandom(*geometry3d(g_binary, 40, 9, 2));
    const ImagePart place{.firstPlan = {1, 0, 0}, .firstLine = 30, .wholeX = 40, .wholeY = 50, .wholeZ = 3};
    buildLines3dImg(g_angles.theta, g_angles.phi, g_angles.alpha, g_offset, part, place);
    EXPECT_TRUE(isPart(*part, {40, 50, 3}, {0, 30, 1}, g_offset));
    ImagePart beside = place;
    beside.firstPlan.z = 2;
    EXPECT_THROW(buildLines3dImg(0.0F, 0.0F, 0.0F, g_offset, part, beside), ORLIXIPLUtilityException);
    EXPECT_THROW(buildLines3dImg(0.0F, 0.0F, 0.0F, g_offset, ImagePtr(), place), ORLIXIPLUtilityException);
}

TEST(BuildLines3dImgPartTest, whatIsRefused)
{
    const auto refusalOf = [](const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first,
                              const ImagePtr& part) { return messageOf([&] { draw(whole, first, g_offset, part); }); };
    EXPECT_EQ(refusalOf({5, 5, 5}, {0, 0, 0}, {}), "The output image has not been initialized");
    const ImagePtr part = testing::makeRandom(*geometry3d(g_binary, 10, 8, 4));
    const ImagePtr before = testing::plainCopy(*part);
    EXPECT_EQ(
        refusalOf({30, 20, 9}, {5, 12, 6}, part),
        "A part of 10x8x4x1x1 Binary from (5, 12, 6) on reaches beyond a whole of 30x20x9: make it smaller, let it "
        "begin earlier, or name a larger whole");
    EXPECT_NE(refusalOf({30, 20, 9}, {21, 12, 5}, part), "no exception");
    EXPECT_NE(refusalOf({30, 20, 9}, {20, 13, 5}, part), "no exception");
    EXPECT_NE(refusalOf({30, 20, 9}, {20, 12, -2UL}, part), "no exception") << "sums don't wrap";
    const ImagePtr grey = image::createImage(*geometry3d(eImageBufferType::UInt8, 10, 8, 4));
    EXPECT_NE(refusalOf({30, 20, 9}, {0, 0, 0}, grey), "no exception");
    EXPECT_TRUE(testing::sameImages(*before, *part));
    EXPECT_EQ(refusalOf({30, 20, 9}, {20, 12, 5}, part), "no exception");
}

} // namespace
} // namespace orlix::imaproc::util::test
