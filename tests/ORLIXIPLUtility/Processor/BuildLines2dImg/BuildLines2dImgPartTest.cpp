// buildLines2dImgPart: a part is what a cut of the whole would be.
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
using image::geometry2d;
using image::geometry5d;
using testing::messageOf;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr float g_theta = 0.6F;
constexpr float g_offset = 7.25F;

/// Every plan of the part holds the whole's pixels from `first` on.
::testing::AssertionResult isPart(const image::BaseImage& part, const attr::Img2dSizeRecord& whole,
                                  const attr::Img2dOffsetRecord& first, float theta, float offset)
{
    const Lines2d lines(whole.X, whole.Y, theta, offset);
    return isDrawn(part,
                   [&](unsigned long x, unsigned long y, unsigned long) { return lines.at(first.X + x, first.Y + y); });
}

TEST(BuildLines2dImgPartTest, partsMakeUpTheWhole)
{
    const ImagePtr whole = buildLines2dImg(301, 203, g_theta, g_offset);
    const auto* const pixels = image::planData<unsigned char>(*whole, 0, 0, 0);
    for (const unsigned long nbLines : {1UL, 7UL, 64UL, 203UL}) {
        for (unsigned long firstY = 0; firstY < 203; firstY += nbLines) {
            const ImagePtr part = testing::makeRandom(*geometry2d(g_binary, 301, std::min(nbLines, 203 - firstY)));
            buildLines2dImgPart({301, 203}, {0, firstY}, g_theta, g_offset, part);
            const std::vector<std::byte> bytes = testing::bytesOf(*part);
            ASSERT_EQ(std::memcmp(bytes.data(), pixels + 301 * firstY, bytes.size()), 0) << firstY;
        }
    }
}

TEST(BuildLines2dImgPartTest, anyPartOfAnyWhole)
{
    EXPECT_TRUE(rc::check("a part is a cut of the whole", [] {
        const auto upTo = [](unsigned long most) { return *rc::gen::inRange<unsigned long>(0, most + 1); };
        const attr::Img2dSizeRecord whole{upTo(400), upTo(90)};
        const attr::Img2dOffsetRecord first{upTo(whole.X), upTo(whole.Y)};
        const ImagePtr part = testing::makeRandom(
            *geometry5d(g_binary, upTo(whole.X - first.X), upTo(whole.Y - first.Y), 1 + upTo(1), 1, 1 + upTo(1)));
        buildLines2dImgPart(whole, first, g_theta, g_offset, part);
        RC_ASSERT(static_cast<bool>(isPart(*part, whole, first, g_theta, g_offset)));
    }));
}

/// Pixels are counted in whole numbers also where lanes of 32 bits no longer can, in wholes that no memory holds.
TEST(BuildLines2dImgPartTest, everySetAgreesFarAway)
{
    testing::forEachSet<BuildLines2dImgLvl3>(
        {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2, eInstructionSet::eAVX512},
        [](testing::Set) {
            const unsigned long most = 1UL << 62;
            for (const unsigned long firstX : {(1UL << 24) - 50, (1UL << 31) - 230, (1UL << 31) - 64, (1UL << 31) - 1,
                                               1UL << 31, 1UL << 33, most - 200}) {
                const attr::Img2dSizeRecord whole{most, most};
                const attr::Img2dOffsetRecord first{firstX, firstX};
                const ImagePtr part = testing::makeRandom(*geometry2d(g_binary, 200, 3));
                buildLines2dImgPart(whole, first, g_theta, 3e6F, part);
                EXPECT_TRUE(isPart(*part, whole, first, g_theta, 3e6F)) << firstX;
                buildLines2dImgPart({2 * firstX, 2 * firstX}, first, g_theta, 3.0F, part);
                EXPECT_TRUE(isPart(*part, {2 * firstX, 2 * firstX}, first, g_theta, 3.0F)) << firstX;
            }
        });
}

TEST(BuildLines2dImgPartTest, wrappedMemoryAndAnyExecutor)
{
    for (const testing::NamedExecutor& named : testing::makeAllExecutors()) {
        const testing::ScopedExecutor scope(named.executor);
        for (const testing::WrapForm& form : {testing::WrapForm{testing::GuardEdge::eEnd},
                                              testing::WrapForm{testing::GuardEdge::eBegin, 5, 0, 3, false}}) {
            const testing::WatchedImage part(*geometry2d(g_binary, 523, 400), form);
            buildLines2dImgPart({1000, 1000}, {77, 500}, g_theta, g_offset, part.get());
            EXPECT_TRUE(isPart(*part.get(), {1000, 1000}, {77, 500}, g_theta, g_offset)) << named.name;
            EXPECT_TRUE(part.isOutsideIntact());
        }
    }
}

TEST(BuildLines2dImgPartTest, offsetsThatAreNoneDrawWhatTheyDrawInWholes)
{
    const ImagePtr part = testing::makeRandom(*geometry2d(g_binary, 50, 20));
    for (const float offset : {0.0F, -2.0F, 0.5F, std::numeric_limits<float>::quiet_NaN()}) {
        buildLines2dImgPart({100, 100}, {50, 80}, g_theta, offset, part);
        EXPECT_TRUE(isPart(*part, {100, 100}, {50, 80}, g_theta, offset)) << offset;
    }
}

TEST(BuildLines2dImgPartTest, wholeLinesAsOtherGeneratorsTakeThem)
{
    const ImagePtr part = testing::makeRandom(*geometry5d(g_binary, 40, 9, 2, 1, 1));
    const ImagePart place{.firstPlan = {1, 0, 0}, .firstLine = 30, .wholeX = 40, .wholeY = 50, .wholeZ = 3};
    buildLines2dImg(g_theta, g_offset, part, place);
    EXPECT_TRUE(isPart(*part, {40, 50}, {0, 30}, g_theta, g_offset));
    ImagePart beside = place;
    beside.wholeX = 41;
    EXPECT_THROW(buildLines2dImg(g_theta, g_offset, part, beside), ORLIXIPLUtilityException);
    beside = place;
    beside.firstLine = 42;
    EXPECT_THROW(buildLines2dImg(g_theta, g_offset, part, beside), ORLIXIPLUtilityException);
    EXPECT_THROW(buildLines2dImg(g_theta, g_offset, ImagePtr(), place), ORLIXIPLUtilityException);
}

TEST(BuildLines2dImgPartTest, whatIsRefused)
{
    const auto draw = [](const attr::Img2dSizeRecord& whole, const attr::Img2dOffsetRecord& first,
                         const ImagePtr& part) {
        return messageOf([&] { buildLines2dImgPart(whole, first, g_theta, g_offset, part); });
    };
    EXPECT_EQ(draw({5, 5}, {0, 0}, {}), "The output image has not been initialized");
    const ImagePtr part = testing::makeRandom(*geometry2d(g_binary, 10, 8));
    const ImagePtr before = testing::plainCopy(*part);
    EXPECT_EQ(
        draw({30, 20}, {5, 13}, part),
        "A part of 10x8x1x1x1 Binary from (5, 13, 0) on reaches beyond a whole of 30x20x1: make it smaller, let it "
        "begin earlier, or name a larger whole");
    EXPECT_NE(draw({30, 20}, {21, 12}, part), "no exception");
    EXPECT_NE(draw({30, 20}, {-5UL, -5UL}, part), "no exception") << "sums don't wrap";
    const ImagePtr grey = image::createImage(*geometry2d(eImageBufferType::UInt8, 10, 8));
    EXPECT_EQ(draw({30, 20}, {0, 0}, grey), messageOf([&] { buildLines2dImg(g_theta, g_offset, grey); }));
    EXPECT_TRUE(testing::sameImages(*before, *part));
    EXPECT_EQ(draw({30, 20}, {20, 12}, part), "no exception");
}

} // namespace
} // namespace orlix::imaproc::util::test
