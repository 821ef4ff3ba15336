// buildLines2dImg as a caller sees it.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/LineOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/PixelwiseTest.h"
#include "support/SameImages.h"

#include <rapidcheck.h>

#include <numbers>

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::messageOf;
using testing::PixelwiseTest;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr float g_theta = 0.9F;
constexpr float g_offset = 6.5F;
constexpr float g_quarterTurn = std::numbers::pi_v<float> / 2;

/// Its input is there for its sizes alone.
boost::shared_ptr<processor::BaseProcessor> prepareLines(const ImageConstPtr& in, const ImagePtr& out)
{
    const auto lines = testing::makeInitialised<BuildLines2dImgLvl1>();
    lines->set<attr::InOutputImg2dSize>(attr::createImg2dSize(in->getSizeX(), in->getSizeY()));
    lines->set<attr::InTheta>(g_theta);
    lines->set<attr::InOffset>(g_offset);
    lines->set<attr::OutBinImg>(out);
    return lines;
}

testing::PixelwiseOperator linesOperator()
{
    return {
        .name = "BuildLines2dImgLvl1",
        .types = {{g_binary, g_binary}},
        .call = [](const ImageConstPtr& in, const ImagePtr& out) { processor::executeSyncRun(prepareLines(in, out)); },
        .start =
            [](const ImageConstPtr& in, const ImagePtr& out) {
                const boost::shared_ptr<processor::BaseProcessor> lines = prepareLines(in, out);
                static_cast<void>(lines->run(core::eSynchroType::eSynchroAsync));
                return lines;
            },
        .prepare = &prepareLines,
        .isRight = [](const image::BaseImage&,
                      const image::BaseImage& out) { return hasLines(out, g_theta, g_offset); },
        .input = "",
        .output = "OutBinImg"};
}

INSTANTIATE_TEST_SUITE_P(BuildLines2dImg, PixelwiseTest, ::testing::Values(linesOperator()));

TEST(BuildLines2dImgTest, alongXTheLineOfTheCentreAndThoseBesideIt)
{
    const ImagePtr image = buildLines2dImg(30, 20, 0.0F, 4.0F);
    EXPECT_EQ(image->getGeometry().toString(), geometry2d(g_binary, 30, 20)->toString());
    EXPECT_TRUE(isDrawn(*image, [](unsigned long, unsigned long y, unsigned long) { return y % 4 == 2 ? 1 : 0; }))
        << "line 10 is one, and every fourth from there";
}

TEST(BuildLines2dImgTest, alongYTheColumnOfTheCentreAndThoseBesideIt)
{
    const ImagePtr image = buildLines2dImg(30, 20, g_quarterTurn, 5.0F);
    EXPECT_TRUE(isDrawn(*image, [](unsigned long x, unsigned long, unsigned long) { return x % 5 == 0 ? 1 : 0; }))
        << "column 15 is one, and every fifth from there";
}

/// Half a pixel before the centre counts, half a pixel behind it doesn't.
TEST(BuildLines2dImgTest, theCentreOfAnOddSizeLiesBetweenPixels)
{
    const ImagePtr image = buildLines2dImg(9, 21, 0.0F, 100.0F);
    EXPECT_TRUE(isDrawn(*image, [](unsigned long, unsigned long y, unsigned long) { return y == 11 ? 1 : 0; }))
        << "the centre is 10.5";
}

TEST(BuildLines2dImgTest, aLineThroughTheCentreIsOnePixelWide)
{
    for (const float theta : {0.1F, 0.7F, 1.2F, 2.5F}) {
        const ImagePtr image = buildLines2dImg(200, 200, theta, 1000.0F);
        const std::vector<std::byte> bytes = testing::bytesOf(*image);
        EXPECT_EQ(bytes[100 * 200 + 100], std::byte{1}) << theta;
        const double area = static_cast<double>(std::count(bytes.begin(), bytes.end(), std::byte{1}));
        const double length = 200 / std::max(std::abs(std::cos(theta)), std::abs(std::sin(theta)));
        EXPECT_NEAR(area, length, 0.02 * length) << theta;
    }
}

TEST(BuildLines2dImgTest, fromXTowardsY)
{
    const ImagePtr image = buildLines2dImg(101, 101, 0.3F, 1000.0F);
    const auto* const pixels = image::planData<unsigned char>(*image, 0, 0, 0);
    const auto lineAt = [&](unsigned long x) {
        unsigned long y = 0;
        while (y < 101 && pixels[101 * y + x] == 0) {
            ++y;
        }
        return static_cast<double>(y);
    };
    EXPECT_NEAR(lineAt(90) - lineAt(10), 80 * std::tan(0.3), 1.5);
}

/// Offset 1: every pixel is within half a pixel of a line, but where it is exactly half a pixel behind the nearest.
TEST(BuildLines2dImgTest, atOneHalfAPixelBehindALineIsNone)
{
    EXPECT_TRUE(hasLines(*buildLines2dImg(64, 64, 0.0F, 1.0F), 0.0F, 1.0F));
    EXPECT_TRUE(isDrawn(*buildLines2dImg(9, 21, 0.0F, 1.0F), [](auto, auto, auto) { return 0; }))
        << "of an odd size all are";
    EXPECT_TRUE(isDrawn(*buildLines2dImg(9, 20, 0.0F, 1.0F), [](auto, auto, auto) { return 1; }));
}

TEST(BuildLines2dImgTest, imagesOfTheCallers)
{
    for (const auto& [x, y, z, c, t] : {std::array{57UL, 33UL, 1UL, 1UL, 1UL}, {57UL, 33UL, 3UL, 2UL, 2UL}}) {
        const ImagePtr image = testing::makeRandom(*geometry5d(g_binary, x, y, z, c, t));
        buildLines2dImg(-0.6F, 3.0F, image);
        EXPECT_TRUE(hasLines(*image, -0.6F, 3.0F));
    }
}

TEST(BuildLines2dImgTest, sizesOfZero)
{
    for (const auto& [x, y] : {std::pair{0UL, 5UL}, {5UL, 0UL}, {0UL, 0UL}}) {
        const ImagePtr image = buildLines2dImg(x, y, 0.5F, 3.0F);
        EXPECT_EQ(image->getSizeX(), x);
        EXPECT_EQ(image->getSizeY(), y);
        EXPECT_NO_THROW(buildLines2dImg(0.5F, 3.0F, image));
    }
}

TEST(BuildLines2dImgTest, imagesThatAreRefused)
{
    EXPECT_EQ(messageOf([] { buildLines2dImg(0.0F, 3.0F, ImagePtr()); }), "The output image has not been initialized");
    EXPECT_EQ(messageOf([] { static_cast<void>(buildLines2dImg_async(0.0F, 3.0F, ImagePtr())); }),
              "The output image has not been initialized");
    EXPECT_THROW(buildLines2dImg(0.0F, 3.0F, ImagePtr()), ORLIXIPLUtilityException);
    const ImagePtr grey = testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 7, 7));
    const ImagePtr before = testing::plainCopy(*grey);
    EXPECT_NE(messageOf([&] { buildLines2dImg(0.0F, 3.0F, grey); }).find("OutBinImg"), std::string::npos);
    EXPECT_TRUE(testing::sameImages(*before, *grey));
    EXPECT_ANY_THROW(static_cast<void>(buildLines2dImg(1UL << 40, 1UL << 40, 0.0F, 3.0F)));
}

TEST(BuildLines2dImgTest, anImageOfAnotherSizeThanSaidIsRefused)
{
    const auto lines = testing::makeInitialised<BuildLines2dImgLvl1>();
    lines->set<attr::InTheta>(0.0F);
    lines->set<attr::InOffset>(3.0);
    lines->set<attr::OutBinImg>(createImage(*geometry2d(g_binary, 7, 5)));
    for (const auto& [x, y] : {std::pair{8UL, 5UL}, {7UL, 4UL}, {0UL, 0UL}}) {
        lines->set<attr::InOutputImg2dSize>(attr::createImg2dSize(x, y));
        EXPECT_NE(lines->run(core::eSynchroType::eSynchroSync).getMessage().find("OutBinImg"), std::string::npos);
    }
    lines->set<attr::InOutputImg2dSize>(attr::createImg2dSize(7, 5));
    EXPECT_TRUE(lines->run(core::eSynchroType::eSynchroSync));
}

TEST(BuildLines2dImgTest, bothAsynchronousForms)
{
    const boost::shared_ptr<BuildLines2dImgLvl1> made = buildLines2dImg_async(301, 200, 0.3F, 8.0F);
    EXPECT_TRUE(made->wait());
    const ImagePtr image = getAsyncProcessorOutput(made);
    ASSERT_NE(image, nullptr);
    EXPECT_TRUE(hasLines(*image, 0.3F, 8.0F));
    const boost::shared_ptr<BuildLines2dImgLvl1> filled = buildLines2dImg_async(1.3F, 9.0F, image);
    EXPECT_TRUE(filled->wait());
    EXPECT_EQ(getAsyncProcessorOutput(filled), image);
    EXPECT_TRUE(hasLines(*image, 1.3F, 9.0F));
}

TEST(BuildLines2dImgTest, wholeImagesOnAnyNumberOfThreads)
{
    for (const testing::NamedExecutor& named : testing::makeAllExecutors()) {
        const testing::ScopedExecutor scope(named.executor);
        EXPECT_TRUE(hasLines(*buildLines2dImg(1001, 1203, 0.35F, 12.5F), 0.35F, 12.5F)) << named.name;
    }
}

TEST(BuildLines2dImgTest, anySizeAngleAndOffset)
{
    EXPECT_TRUE(rc::check("every pixel is what the oracle says", [] {
        const unsigned long sizeX = *rc::gen::inRange<unsigned long>(0, 300);
        const unsigned long sizeY = *rc::gen::inRange<unsigned long>(0, 60);
        const float theta = static_cast<float>(*rc::gen::inRange<int>(-7000, 7000)) / 1000.0F;
        const float offset = static_cast<float>(*rc::gen::inRange<int>(-10, 4000)) / 64.0F;
        const ImagePtr image = buildLines2dImg(sizeX, sizeY, theta, offset);
        RC_ASSERT(static_cast<bool>(hasLines(*image, theta, offset)));
    }));
}

} // namespace
} // namespace orlix::imaproc::util::test
