// randomImg as a caller sees it.
#include "ORLIXIPLUtility/Processor/RandomImages.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/PixelwiseTest.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util::test {
namespace {

using attr::createRange;
using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using testing::messageOf;
using testing::PixelwiseTest;

/// Within every element type but the binary one.
const auto g_range = createRange(10.9, 100.9);
const auto g_binaryRange = createRange(0, 1);

boost::shared_ptr<const attr::Range> rangeOf(const ImagePtr& image)
{
    return image && image->getBufferType() == eImageBufferType::eBufferBinary ? g_binaryRange : g_range;
}

/// Do the elements lie evenly on [min, max] of their type?
::testing::AssertionResult isUniform(const image::BaseImage& image, double min, double max)
{
    return isRandom<RandomImgLvl3>(
        image, runOfChecks(),
        [=]<class T>(eInstructionSet::domain set, const std::vector<unsigned>& states, unsigned long nb) {
            return simd::test::uniformOracle<T>(set, static_cast<T>(min), static_cast<T>(max), states, nb);
        });
}

::testing::AssertionResult isInRangeOfChecks(const image::BaseImage& image)
{
    const bool bBinary = image.getBufferType() == eImageBufferType::eBufferBinary;
    return bBinary ? isUniform(image, 0, 1) : isUniform(image, 10.9, 100.9);
}

testing::PixelwiseOperator randomOperator()
{
    std::vector<testing::ElementTypes> types;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        types.push_back({type, type});
    }
    return {.name = "RandomImgLvl1",
            .types = types,
            .call = [](const ImageConstPtr&, const ImagePtr& out) { randomImg(rangeOf(out), out); },
            .start = [](const ImageConstPtr&, const ImagePtr& out) { return randomImg_async(rangeOf(out), out); },
            .prepare =
                [](const ImageConstPtr&, const ImagePtr& out) {
                    const auto random = testing::makeInitialised<RandomImgLvl1>();
                    random->set<attr::OutImg>(out);
                    random->set<attr::InOptOutputRange>(rangeOf(out));
                    return random;
                },
            .isRight = [](const image::BaseImage&, const image::BaseImage& out) { return isInRangeOfChecks(out); },
            .input = ""};
}

INSTANTIATE_TEST_SUITE_P(RandomImg, PixelwiseTest, ::testing::Values(randomOperator()));
[[maybe_unused]] const bool g_bListening =
    (::testing::UnitTest::GetInstance()->listeners().Append(new RunOfSuite("RandomImg/PixelwiseTest")), true);

TEST(RandomImgTest, withoutARangeAllThatTheTypeCanHold)
{
    const RandomRunScope scope(runOfChecks());
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = createImage(*image::geometry5d(type, 129, 40, 2, 1, 2));
        randomImg(image);
        EXPECT_TRUE(isUniform(*image, image::getMinValue(type), image::getMaxValue(type)));
    }
}

TEST(RandomImgTest, aNullImageIsRefusedWithoutARangeToo)
{
    EXPECT_EQ(messageOf([] { randomImg(ImagePtr()); }), messageOf([] { randomImg(g_range, ImagePtr()); }));
    EXPECT_NE(messageOf([] { randomImg(ImagePtr()); }).find("OutImg"), std::string::npos);
}

TEST(RandomImgTest, theRangeThatTheFirstRunSetStays)
{
    const auto random = testing::makeInitialised<RandomImgLvl1>();
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Int16, 300, 200));
    random->set<attr::OutImg>(image);
    EXPECT_FALSE(random->getAttribute("InOptOutputRange").isSet());
    EXPECT_TRUE(random->run(core::eSynchroType::eSynchroSync));
    EXPECT_EQ(random->getAttribute("InOptOutputRange").getValueText(), "Min=-32768,Max=32767");
    const ImagePtr narrow = createImage(*geometry2d(eImageBufferType::UInt8, 30, 20));
    random->set<attr::OutImg>(narrow);
    EXPECT_FALSE(random->run(core::eSynchroType::eSynchroSync)) << "it is that of the first image";
}

TEST(RandomImgTest, oneValueAndEndsInTheWrongOrder)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = createImage(*geometry2d(type, 100, 50));
        randomImg(createRange(1, 1), image);
        const ImagePtr erased = createImage(*geometry2d(type, 100, 50));
        eraseImg(erased, 1.0);
        EXPECT_TRUE(testing::sameImages(*erased, *image));
        EXPECT_NO_THROW(randomImg(createRange(1, 0), image));
    }
}

TEST(RandomImgTest, endsOutsideTheTypeAreRefused)
{
    const ImagePtr image = testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 20, 20));
    const ImagePtr before = testing::plainCopy(*image);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [min, max] : {std::pair{0.0, 255.5}, {-1.0, 5.0}, {nan, 5.0}, {0.0, nan}, {300.0, 5.0}}) {
        const std::string message = messageOf([&, low = min, high = max] { randomImg(createRange(low, high), image); });
        EXPECT_NE(message.find("InOptOutputRange"), std::string::npos) << message;
        EXPECT_TRUE(testing::sameImages(*before, *image));
    }
    EXPECT_EQ(
        messageOf([&] { randomImg(createRange(0, 256), image); }),
        "Max of InOptOutputRange is 256, but has to lie within the range of UInt8, the element type of OutImg: 0 to "
        "255");
    EXPECT_EQ(messageOf([&] { randomImg(boost::shared_ptr<const attr::Range>(), image); }),
              "RandomImgLvl1: attribute InOptOutputRange holds a null pointer: give it an object that exists");
}

TEST(RandomImgLvl2Test, aPlanByItself)
{
    const auto level = testing::makeInitialised<RandomImgLvl2>();
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt16, 700, 400));
    level->set<attr::InOutputRange>(createRange(5, 1000));
    level->set<attr::OutSubImg2d>(image);
    level->setRandomRun(runOfChecks());
    EXPECT_TRUE(level->run(core::eSynchroType::eSynchroSync));
    EXPECT_TRUE(isUniform(*image, 5, 1000));
    EXPECT_TRUE(level->run(core::eSynchroType::eSynchroSync));
    EXPECT_FALSE(isUniform(*image, 5, 1000)) << "the run was named once";
    level->set<attr::InOutputRange>(createRange(5, 70000));
    EXPECT_FALSE(level->run(core::eSynchroType::eSynchroSync));
}

} // namespace
} // namespace orlix::imaproc::util::test
