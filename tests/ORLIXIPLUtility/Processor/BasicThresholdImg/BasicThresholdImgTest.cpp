// Thresholds of whole images, and what is refused.
#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIXIPLUtility/Processor/BasicThresholdImg/ThresholdOracle.h"
#include "support/PixelwiseTest.h"

#include <rapidcheck.h>

#include <limits>

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::PixelwiseTest;

constexpr auto g_binary = eImageBufferType::eBufferBinary;
constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

/// With bounds that select about half of all pixels.
testing::PixelwiseOperator thresholdOperator()
{
    const auto prepare = [](const ImageConstPtr& in, const ImagePtr& out) {
        const Bounds bounds = in ? middleOf(in->getBufferType()) : Bounds{0, 1};
        const auto level = makeThreshold(in, bounds.low, bounds.high);
        level->set<attr::OutBinImg>(out);
        return level;
    };
    std::vector<testing::ElementTypes> types;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        types.push_back({type, g_binary});
    }
    return {.name = "BasicThresholdImgLvl1",
            .types = types,
            .call = [=](const ImageConstPtr& in, const ImagePtr& out) { processor::executeSyncRun(prepare(in, out)); },
            .make =
                [](const ImageConstPtr& in, eImageBufferType) {
                    const Bounds bounds = middleOf(in->getBufferType());
                    const auto level = makeThreshold(in, bounds.low, bounds.high);
                    processor::executeSyncRun(level);
                    return level->getStorage<attr::OutBinImg>();
                },
            .start =
                [=](const ImageConstPtr& in, const ImagePtr& out) {
                    const auto level = prepare(in, out);
                    EXPECT_TRUE(level->run(core::eSynchroType::eSynchroAsync));
                    return level;
                },
            .prepare = prepare,
            .isRight =
                [](const image::BaseImage& in, const image::BaseImage& out) {
                    const Bounds bounds = middleOf(in.getBufferType());
                    return isThreshold(in, bounds.low, bounds.high, out);
                },
            .output = "OutBinImg"};
}

INSTANTIATE_TEST_SUITE_P(BasicThresholdImg, PixelwiseTest, ::testing::Values(thresholdOperator()));

/// Half the last-level cache and more: stores go past the caches.
TEST(BasicThresholdImgTest, largeImage)
{
    constexpr unsigned long sizeX = 16381;
    const unsigned long sizeY = hard::getLastLevelCacheBytes() / 2 / sizeX + 2;
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, sizeX, sizeY));
    const ImagePtr out = threshold(in, 100, 155.5);
    ASSERT_EQ(levelOf(out->getPixelLayout().place), simd::eMemoryPlace::lastLevelCacheFilled);
    for (unsigned long y = 0; y < sizeY; ++y) {
        const unsigned char* from = image::planData<unsigned char>(*in, 0, 0, 0) + y * sizeX;
        const unsigned char* to = image::planData<unsigned char>(*out, 0, 0, 0) + y * sizeX;
        unsigned long nbWrong = 0;
        for (unsigned long x = 0; x < sizeX; ++x) {
            nbWrong += to[x] != (from[x] >= 100 && from[x] <= 155 ? 1 : 0);
        }
        ASSERT_EQ(nbWrong, 0U) << "line " << y;
    }
}

TEST(BasicThresholdImgTest, aBinaryImageOntoItself)
{
    const ImagePtr image = createImage(*geometry2d(g_binary, 301, 77));
    testing::fillRandom(*image, 4);
    const std::vector<std::byte> expected = expectedBytes(*image, 0, 1);
    EXPECT_EQ(runThreshold(image, 0, 1, image), "");
    EXPECT_EQ(testing::bytesOf(*image), expected);
}

image::BaseImageGeometry mixedGeometry(const std::vector<eImageBufferType>& types)
{
    image::TemporalGeometry temporal;
    temporal.initSequence(types.size());
    return {types, 33, 21, {}, {}, temporal};
}

TEST(BasicThresholdImgTest, typesThatDifferByStep)
{
    const ImagePtr in =
        makeRandom(mixedGeometry({eImageBufferType::UInt16, eImageBufferType::Real32, eImageBufferType::UInt8}));
    EXPECT_TRUE(isThreshold(*in, 3.5, 100, *threshold(in, 3.5, 100)));
    const ImagePtr out = makeRandom(*geometry5d(g_binary, 33, 21, 1, 1, 3));
    const std::vector<std::byte> before = testing::bytesOf(*out);
    EXPECT_EQ(runThreshold(in, 3.5, 256, out),
              "InThresholdMax is 256, but has to lie within the range of UInt8, the element type of InImg: 0 to 255")
        << "every step counts before any is written";
    EXPECT_EQ(testing::bytesOf(*out), before);
}

/// Expects that the run fails with the message and leaves the output as it was.
void expectRefused(const ImagePtr& in, double low, double high, const ImagePtr& out, const std::string& message)
{
    const std::vector<std::byte> before = testing::bytesOf(*out);
    EXPECT_EQ(runThreshold(in, low, high, out), message);
    EXPECT_EQ(testing::bytesOf(*out), before);
}

TEST(BasicThresholdImgRulesTest, outputsOfAnotherSizeOrType)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt16, 30, 20));
    expectRefused(in, 1, 2, makeRandom(*geometry2d(g_binary, 30, 21)),
                  "OutBinImg is 30x21x1x1x1 Binary, InImg is 30x20x1x1x1 UInt16: sizes have to be the same");
    for (const eImageBufferType type : image::g_allBufferTypes) {
        if (type != g_binary) {
            expectRefused(in, 1, 2, makeRandom(*geometry2d(type, 30, 20)),
                          std::string("OutBinImg is 30x20x1x1x1 ") + image::getBufferTypeName(type) +
                              ", but has to be of element type Binary");
        }
    }
    const ImagePtr sequence = makeRandom(mixedGeometry({eImageBufferType::UInt8, eImageBufferType::UInt8}));
    expectRefused(sequence, 1, 2, makeRandom(mixedGeometry({g_binary, eImageBufferType::UInt8})),
                  "OutBinImg is 33x21x1x1x2 Binary/UInt8, but has to be of element type Binary");
}

TEST(BasicThresholdImgRulesTest, boundsInTheWrongOrder)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 30, 20));
    const ImagePtr out = makeRandom(*geometry2d(g_binary, 30, 20));
    expectRefused(in, 7, 6, out, "InThresholdMin is 7, but has to be at most equal to InThresholdMax, which is 6");
    expectRefused(in, 6.5, 6.25, out,
                  "InThresholdMin is 6.5, but has to be at most equal to InThresholdMax, which is 6.25");
    EXPECT_EQ(runThreshold(in, 6.5, 6.5, out), "");
}

TEST(BasicThresholdImgRulesTest, boundsOutsideTheRange)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 30, 20));
    const ImagePtr out = makeRandom(*geometry2d(g_binary, 30, 20));
    const std::string range = ", but has to lie within the range of UInt8, the element type of InImg: 0 to 255";
    expectRefused(in, -0.5, 3, out, "InThresholdMin is -0.5" + range);
    expectRefused(in, 3, 255.5, out, "InThresholdMax is 255.5" + range);
    expectRefused(in, 3, g_infinity, out, "InThresholdMax is inf" + range);
    expectRefused(in, -g_infinity, 3, out, "InThresholdMin is -inf" + range);
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr typed = makeRandom(*geometry2d(type, 30, 20));
        const double smallest = image::getMinValue(type);
        const double largest = image::getMaxValue(type);
        EXPECT_EQ(runThreshold(typed, smallest, largest, out), "");
        const std::vector<std::byte> before = testing::bytesOf(*out);
        EXPECT_NE(runThreshold(typed, std::nextafter(smallest, -g_infinity), largest, out), "");
        EXPECT_NE(runThreshold(typed, smallest, std::nextafter(largest, g_infinity), out), "");
        EXPECT_NE(runThreshold(typed, -g_infinity, g_infinity, out), "");
        EXPECT_EQ(testing::bytesOf(*out), before);
    }
}

TEST(BasicThresholdImgRulesTest, boundsThatAreNoNumbers)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Real32}) {
        const ImagePtr in = makeRandom(*geometry2d(type, 30, 20));
        const ImagePtr out = makeRandom(*geometry2d(g_binary, 30, 20));
        expectRefused(in, g_nan, 6, out,
                      "InThresholdMin is nan, but has to be at most equal to InThresholdMax, which is 6");
        expectRefused(in, 6, g_nan, out,
                      "InThresholdMin is 6, but has to be at most equal to InThresholdMax, which is nan");
        expectRefused(in, g_nan, g_nan, out,
                      "InThresholdMin is nan, but has to be at most equal to InThresholdMax, which is nan");
    }
}

TEST(BasicThresholdImgTest, randomGeometriesAndBounds)
{
    EXPECT_TRUE(rc::check("a pixel is 1 where the input lies between the bounds", [] {
        const auto size = [](unsigned long most) { return *rc::gen::inRange<unsigned long>(0, most + 1); };
        const eImageBufferType type = image::g_allBufferTypes[*rc::gen::inRange<std::size_t>(0, 11)];
        const ImagePtr in = makeRandom(*geometry5d(type, size(150), size(40), size(4), size(3), size(2)), size(1000));
        const double smallest = type == eImageBufferType::Real32 ? -1e6 : image::getMinValue(type);
        const double largest = type == eImageBufferType::Real32 ? 1e6 : image::getMaxValue(type);
        const auto bound = [&] { return smallest + (largest - smallest) * (*rc::gen::inRange(0, 10001) / 1e4); };
        const double one = bound();
        const double other = bound();
        const double low = std::min(one, other);
        const double high = std::max(one, other);
        RC_ASSERT(static_cast<bool>(isThreshold(*in, low, high, *threshold(in, low, high))));
    }));
}

} // namespace
} // namespace orlix::imaproc::util::test
