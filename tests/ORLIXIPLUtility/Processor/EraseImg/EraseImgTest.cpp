// eraseImg as a caller sees it.
#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/EraseImg/EraseOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/PixelwiseTest.h"

#include <rapidcheck.h>

#include <algorithm>

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::makeRandom;
using testing::PixelwiseTest;

constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

constexpr double g_value = 77.7;

boost::shared_ptr<EraseImgLvl1> prepareErasure(const ImagePtr& out)
{
    const auto erasure = testing::makeInitialised<EraseImgLvl1>();
    erasure->set<attr::InOptEraseValue>(g_value);
    erasure->set<attr::OutImg>(out);
    return erasure;
}

testing::PixelwiseOperator eraseOperator()
{
    std::vector<testing::ElementTypes> types;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        types.push_back({type, type});
    }
    return {.name = "EraseImgLvl1",
            .types = types,
            .call = [](const ImageConstPtr&, const ImagePtr& out) { eraseImg(out, g_value); },
            .start = [](const ImageConstPtr&, const ImagePtr& out) { return eraseImg_async(out, g_value); },
            .prepare = [](const ImageConstPtr&, const ImagePtr& out) { return prepareErasure(out); },
            .isRight = [](const image::BaseImage&, const image::BaseImage& out) { return isErased(out, g_value); },
            .input = ""};
}

INSTANTIATE_TEST_SUITE_P(EraseImg, PixelwiseTest, ::testing::Values(eraseOperator()));

template <class T>
T erasedTo(const eImageBufferType& type, double value)
{
    const ImagePtr image = makeRandom(*geometry2d(type, 3, 2));
    eraseImg(image, value);
    return image::planData<T>(*image, 0, 0, 0)[5];
}

TEST(EraseImgTest, knownValues)
{
    EXPECT_EQ(erasedTo<unsigned char>(eImageBufferType::UInt8, 300.0), 44);
    EXPECT_EQ(erasedTo<unsigned char>(eImageBufferType::UInt8, -1.0), 255);
    EXPECT_EQ(erasedTo<unsigned char>(eImageBufferType::UInt8, 3e9), 0);
    EXPECT_EQ(erasedTo<signed char>(eImageBufferType::Int8, 200.0), -56);
    EXPECT_EQ(erasedTo<short>(eImageBufferType::Int16, 40000.0), -25536);
    EXPECT_EQ(erasedTo<unsigned short>(eImageBufferType::UInt16, 65536.0 + 7), 7);
    EXPECT_EQ(erasedTo<int>(eImageBufferType::Int32, 2147483647.9), 2147483647);
    EXPECT_EQ(erasedTo<int>(eImageBufferType::Int32, 2147483648.0), std::numeric_limits<int>::min());
    EXPECT_EQ(erasedTo<int>(eImageBufferType::Int32, g_nan), std::numeric_limits<int>::min());
    EXPECT_EQ(erasedTo<unsigned int>(eImageBufferType::UInt32, 5e9), 705032704U);
    EXPECT_EQ(erasedTo<unsigned int>(eImageBufferType::UInt32, -1.0), 4294967295U);
    EXPECT_EQ(erasedTo<unsigned int>(eImageBufferType::UInt32, 4294967295.0), 4294967295U);
    EXPECT_EQ(erasedTo<unsigned int>(eImageBufferType::UInt32, g_infinity), 0U);
    EXPECT_EQ(erasedTo<float>(eImageBufferType::Real32, 1.9), 1.9F);
    EXPECT_EQ(erasedTo<float>(eImageBufferType::Real32, 1e300), std::numeric_limits<float>::infinity());
    EXPECT_EQ(erasedTo<float>(eImageBufferType::Real32, -1e300), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(erasedTo<float>(eImageBufferType::Real32, 16777217.0), 16777216.0F);
    EXPECT_TRUE(std::isnan(erasedTo<float>(eImageBufferType::Real32, g_nan)));
    EXPECT_TRUE(std::signbit(erasedTo<float>(eImageBufferType::Real32, -0.0)));
    for (const auto type :
         {eImageBufferType::UInt8, eImageBufferType::eBufferBinary, eImageBufferType::eBufferUInt8Like}) {
        EXPECT_EQ(erasedTo<unsigned char>(type, 1.9), 1);
        EXPECT_EQ(erasedTo<unsigned char>(type, -1.9), 255);
    }
}

TEST(EraseImgTest, everyTypeAndValue)
{
    std::vector<double> values = {0.0,        -0.0,        1.9,     -1.9,    0.99,
                                  -0.99,      127,         128,     255.5,   300,
                                  -1,         -129,        65535.9, 65536,   -32769,
                                  1e-300,     1e10,        -1e10,   1e300,   -1e300,
                                  g_infinity, -g_infinity, 1e-46,   1.0 / 3, std::numeric_limits<double>::denorm_min()};
    for (const int exponent : {7, 8, 15, 16, 31, 32, 62, 63, 64, 127, 128}) {
        const double power = std::ldexp(1.0, exponent);
        for (const double value : {power, std::nextafter(power, 0), std::nextafter(power, g_infinity), power - 0.5}) {
            values.push_back(value);
            values.push_back(-value);
        }
    }
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = makeRandom(*geometry2d(type, 67, 3));
        for (const double value : values) {
            eraseImg(image, value);
            ASSERT_TRUE(isErased(*image, value)) << image::getBufferTypeName(type) << " " << value;
        }
        if (type != eImageBufferType::Real32) { // of a float, which NaN it is says nothing
            eraseImg(image, g_nan);
            EXPECT_TRUE(isErased(*image, g_nan)) << image::getBufferTypeName(type);
        }
    }
}

TEST(EraseImgTest, withoutAValueItIsZero)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = makeRandom(*geometry5d(type, 19, 7, 2, 3, 2));
        eraseImg(image);
        EXPECT_TRUE(isErased(*image, 0.0)) << image::getBufferTypeName(type);
        eraseImg(image, 5.0);
        eraseImg(image);
        EXPECT_TRUE(isErased(*image, 0.0)) << "a value of an earlier call must not stay";
    }
    EXPECT_NO_THROW(eraseImg(createImage(*geometry2d(eImageBufferType::UInt8, 0, 3))));
    EXPECT_EQ(testing::messageOf([] { eraseImg(ImagePtr()); }),
              "EraseImgLvl1: attribute OutImg holds a null pointer: give it an object that exists");
}

/// The last-level cache and more: stores go past the caches.
TEST(EraseImgTest, largeImage)
{
    constexpr unsigned long sizeX = 16381;
    const unsigned long sizeY = hard::getLastLevelCacheBytes() / sizeX + 2;
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, sizeX, sizeY));
    ASSERT_EQ(levelOf(image->getPixelLayout().place), simd::eMemoryPlace::memory);
    eraseImg(image, 250.0);
    EXPECT_TRUE(isErased(*image, 250.0));
}

TEST(EraseImgTest, typesThatDifferByStep)
{
    image::TemporalGeometry temporal;
    temporal.initSequence(3);
    const image::BaseImageGeometry geometry(
        {eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::Int16}, 33, 21, {}, {}, temporal);
    const ImagePtr image = makeRandom(geometry);
    eraseImg(image, 300.25);
    EXPECT_TRUE(isErased(*image, 300.25));
}

TEST(EraseImgTest, randomGeometriesAndValues)
{
    EXPECT_TRUE(rc::check("every pixel holds the value", [] {
        const auto size = [](unsigned long most) { return *rc::gen::inRange<unsigned long>(0, most + 1); };
        const eImageBufferType type = image::g_allBufferTypes[*rc::gen::inRange<std::size_t>(0, 11)];
        const ImagePtr image = makeRandom(*geometry5d(type, size(150), size(40), size(4), size(3), size(2)));
        const double value = std::ldexp(*rc::gen::inRange<int>(-1000000, 1000000), *rc::gen::inRange<int>(-30, 60));
        eraseImg(image, value);
        RC_ASSERT(static_cast<bool>(isErased(*image, value)));
    }));
}

} // namespace
} // namespace orlix::imaproc::util::test
