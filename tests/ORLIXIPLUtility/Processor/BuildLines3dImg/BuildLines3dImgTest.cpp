// buildLines3dImg as a caller sees it.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/LineOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/SameImages.h"

#include <rapidcheck.h>

#include <numbers>
#include <thread>

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry3d;
using testing::messageOf;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr auto g_sync = core::eSynchroType::eSynchroSync;
constexpr LineAngles g_angles{0.4F, 0.3F, 0.2F};

ImagePtr makeLines(unsigned long x, unsigned long y, unsigned long z, const LineAngles& angles, float offset)
{
    return buildLines3dImg(x, y, z, angles.theta, angles.phi, angles.alpha, offset);
}

/// A volume of several channels and time steps.
ImagePtr makeSequence(unsigned long x, unsigned long y, unsigned long z, unsigned long c, unsigned long t)
{
    image::VolumeGeometry volume;
    volume.init3d(z);
    image::ColorGeometry colour;
    colour.initChannels(c);
    image::TemporalGeometry temporal;
    temporal.initSequence(t);
    return testing::makeRandom({g_binary, x, y, volume, colour, temporal});
}

TEST(BuildLines3dImgTest, withoutAnglesALatticeOfLinesAlongZ)
{
    const ImagePtr image = makeLines(24, 17, 5, {0.0F, 0.0F, 0.0F}, 4.0F);
    EXPECT_EQ(image->getGeometry().toString(), geometry3d(g_binary, 24, 17, 5)->toString());
    EXPECT_TRUE(isDrawn(*image, [](unsigned long x, unsigned long y, unsigned long) {
        return x % 4 == 0 && y % 4 == 0 ? 1 : 0;
    })) << "(12, 8) is on one";
}

TEST(BuildLines3dImgTest, aQuarterTurnOfThetaLaysTheLinesAlongX)
{
    const ImagePtr image = makeLines(9, 16, 12, {std::numbers::pi_v<float> / 2, 0.0F, 0.0F}, 6.0F);
    EXPECT_TRUE(isDrawn(*image, [](unsigned long, unsigned long y, unsigned long z) {
        return y % 6 == 2 && z % 6 == 0 ? 1 : 0;
    })) << "(y, z) = (8, 6) is on one";
}

TEST(BuildLines3dImgTest, theCentreOfAnOddSizeIsAVoxel)
{
    const ImagePtr image = makeLines(9, 11, 3, {0.0F, 0.0F, 0.0F}, 100.0F);
    EXPECT_TRUE(
        isDrawn(*image, [](unsigned long x, unsigned long y, unsigned long) { return x == 4 && y == 5 ? 1 : 0; }));
}

TEST(BuildLines3dImgTest, linesLeanTowardsXByTheta)
{
    const ImagePtr image = makeLines(200, 9, 101, {0.5F, 0.0F, 0.0F}, 1000.0F);
    const auto lineAt = [&](unsigned long z) {
        const auto* const line = image::planData<unsigned char>(*image, z, 0, 0) + 4 * 200;
        return static_cast<double>(std::find(line, line + 200, 1) - line);
    };
    EXPECT_NEAR(lineAt(90) - lineAt(10), 80 * std::tan(0.5), 1.5);
}

TEST(BuildLines3dImgTest, volumesOfTheCallers)
{
    const ImagePtr image = makeSequence(31, 13, 7, 2, 3);
    buildLines3dImg(0.1F, 0.2F, 0.3F, 4.0F, image);
    EXPECT_TRUE(hasLines(*image, LineAngles{0.1F, 0.2F, 0.3F}, 4.0F));
    const ImagePtr onePlan = testing::makeRandom(*geometry3d(g_binary, 31, 13, 1));
    buildLines3dImg(0.1F, 0.2F, 0.3F, 4.0F, onePlan);
    EXPECT_TRUE(hasLines(*onePlan, LineAngles{0.1F, 0.2F, 0.3F}, 4.0F));
}

TEST(BuildLines3dImgTest, sizesOfZero)
{
    for (const auto& [x, y, z] : {std::array{0UL, 5UL, 5UL}, {5UL, 0UL, 5UL}, {5UL, 5UL, 0UL}, {0UL, 0UL, 0UL}}) {
        const ImagePtr image = makeLines(x, y, z, g_angles, 3.0F);
        EXPECT_EQ(image->getSizeX(), x);
        EXPECT_EQ(image->getSizeY(), y);
        EXPECT_EQ(image->getSizeZ(), z);
        EXPECT_NO_THROW(buildLines3dImg(0.5F, 0.5F, 0.5F, 3.0F, image));
    }
}

TEST(BuildLines3dImgTest, imagesThatAreRefused)
{
    const auto fill = [](const ImagePtr& image) { buildLines3dImg(0.0F, 0.0F, 0.0F, 3.0F, image); };
    EXPECT_EQ(messageOf([&] { fill({}); }), "The output image has not been initialized");
    EXPECT_EQ(messageOf([] { static_cast<void>(buildLines3dImg_async(0.0F, 0.0F, 0.0F, 3.0F, ImagePtr())); }),
              "The output image has not been initialized");
    EXPECT_THROW(fill({}), ORLIXIPLUtilityException);
    const ImagePtr grey = testing::makeRandom(*geometry3d(eImageBufferType::UInt8, 7, 7, 7));
    const ImagePtr before = testing::plainCopy(*grey);
    EXPECT_NE(messageOf([&] { fill(grey); }).find("OutBinImg3d"), std::string::npos);
    EXPECT_TRUE(testing::sameImages(*before, *grey));
    EXPECT_ANY_THROW(static_cast<void>(makeLines(1UL << 40, 1UL << 40, 1UL << 40, g_angles, 3.0F)));
}

TEST(BuildLines3dImgTest, aPlanAndVolumesOfAnotherSizeThanSaidAreRefused)
{
    const ImagePtr plan = testing::makeRandom(*image::geometry2d(g_binary, 7, 5));
    const ImagePtr before = testing::plainCopy(*plan);
    EXPECT_NE(messageOf([&] { buildLines3dImg(0.0F, 0.0F, 0.0F, 3.0F, plan); }).find("OutBinImg3d"), std::string::npos);
    EXPECT_NE(messageOf([&] {
                  buildLines3dImgPart({9, 9, 9}, {0, 0, 0}, 0.0F, 0.0F, 0.0F, 3.0F, plan);
              }).find("OutBinImg3d"),
              std::string::npos);
    EXPECT_TRUE(testing::sameImages(*before, *plan));
    const auto lines = testing::makeInitialised<BuildLines3dImgLvl1>();
    lines->set<attr::InTheta>(0.0F);
    lines->set<attr::InPhi>(0.0F);
    lines->set<attr::InAlpha>(0.0F);
    lines->set<attr::InOffset>(3.0);
    lines->set<attr::OutBinImg3d>(createImage(*geometry3d(g_binary, 7, 5, 3)));
    for (const auto& [x, y, z] : {std::array{8UL, 5UL, 3UL}, {7UL, 4UL, 3UL}, {7UL, 5UL, 2UL}}) {
        lines->set<attr::InOutputImg3dSize>(attr::createImg3dSize(x, y, z));
        EXPECT_NE(lines->run(g_sync).getMessage().find("OutBinImg3d"), std::string::npos);
    }
    lines->set<attr::InOutputImg3dSize>(attr::createImg3dSize(7, 5, 3));
    EXPECT_TRUE(lines->run(g_sync));
}

TEST(BuildLines3dImgTest, bothAsynchronousForms)
{
    const boost::shared_ptr<BuildLines3dImgLvl1> made = buildLines3dImg_async(101, 90, 30, 0.4F, 0.3F, 0.2F, 8.0F);
    EXPECT_TRUE(made->wait());
    const ImagePtr image = getAsyncProcessorOutput(made);
    ASSERT_NE(image, nullptr);
    EXPECT_TRUE(hasLines(*image, g_angles, 8.0F));
    const boost::shared_ptr<BuildLines3dImgLvl1> filled = buildLines3dImg_async(0.4F, 0.3F, 0.2F, 9.0F, image);
    EXPECT_TRUE(filled->wait());
    EXPECT_EQ(getAsyncProcessorOutput(filled), image);
    EXPECT_TRUE(hasLines(*image, g_angles, 9.0F));
}

TEST(BuildLines3dImgTest, wholeVolumesOnAnyNumberOfThreads)
{
    for (const testing::NamedExecutor& named : testing::makeAllExecutors()) {
        const testing::ScopedExecutor scope(named.executor);
        EXPECT_TRUE(hasLines(*makeLines(151, 83, 91, g_angles, 12.5F), g_angles, 12.5F)) << named.name;
    }
}

TEST(BuildLines3dImgTest, cancellationEndsItAtTheNextStrip)
{
    const ImagePtr image = makeSequence(64, 64, 4, 50, 4);
    const auto lines = testing::makeInitialised<BuildLines3dImgLvl1>();
    lines->set<attr::InOutputImg3dSize>(attr::createImg3dSize(64, 64, 4));
    lines->set<attr::OutBinImg3d>(image);
    lines->set<attr::InOffset>(3.0);
    for (const char* const angle : {"InTheta", "InPhi", "InAlpha"}) {
        ASSERT_TRUE(lines->getAttribute(angle).setFromText("0.25"));
    }
    core::Progress last;
    lines->setProgressObserver([&](const core::Progress& progress) {
        last = progress;
        if (progress.done == 10) {
            std::thread([&] { lines->requestCancellation(); }).join();
        }
    });
    EXPECT_FALSE(lines->run(g_sync));
    EXPECT_LT(last.done, 10 + 3 * core::accessExecutor().getNbThreads());
    lines->setProgressObserver({});
    EXPECT_TRUE(lines->run(g_sync)) << "it can be run again";
    EXPECT_TRUE(hasLines(*image, LineAngles{0.25F, 0.25F, 0.25F}, 3.0F));
}

TEST(BuildLines3dImgTest, anySizesAnglesAndOffset)
{
    EXPECT_TRUE(rc::check("every voxel is what the oracle says", [] {
        const auto size = [](unsigned long most) { return *rc::gen::inRange<unsigned long>(0, most); };
        const auto angle = [] { return static_cast<float>(*rc::gen::inRange<int>(-7000, 7000)) / 1000.0F; };
        const LineAngles angles{angle(), angle(), angle()};
        const float offset = static_cast<float>(*rc::gen::inRange<int>(-10, 2000)) / 64.0F;
        const ImagePtr image = makeLines(size(150), size(12), size(9), angles, offset);
        RC_ASSERT(static_cast<bool>(hasLines(*image, angles, offset)));
    }));
}

} // namespace
} // namespace orlix::imaproc::util::test
