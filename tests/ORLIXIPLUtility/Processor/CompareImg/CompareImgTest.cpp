// compareImg as a caller sees it: five axes, strips, threads, tolerances, refusals.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPLUtility/Processor/CompareImg/CompareOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/Images.h"
#include "support/PixelwiseTest.h"

namespace orlix::imaproc::util::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::makeRandom;
using testing::messageOf;
using testing::PixelwiseTest;

constexpr unsigned long g_nowhere = attr::PixelPosition::s_nowhere;

/// The second image stands for the output: it has the sizes of the first and is only read.
testing::PixelwiseOperator compareOperator()
{
    const auto prepare = [](const ImageConstPtr& first, const ImagePtr& second) {
        const auto comparison = testing::makeInitialised<CompareImgLvl1>();
        comparison->set<attr::InImg1>(first);
        comparison->set<attr::InImg2>(second);
        return comparison;
    };
    std::vector<testing::ElementTypes> types;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        types.push_back({type, type});
    }
    return {.name = "CompareImgLvl1",
            .types = types,
            .call =
                [](const ImageConstPtr& first, const ImagePtr& second) {
                    const auto found = compareImg(first, second);
                    // The oracle takes lines as they lie.
                    EXPECT_TRUE(sameResult(
                        expectedResult(*testing::plainCopy(*first), *testing::plainCopy(*second), {}), *found));
                },
            .start = [](const ImageConstPtr& first, const ImagePtr& second) { return compareImg_async(first, second); },
            .prepare = prepare,
            .isRight = [](const image::BaseImage&,
                          const image::BaseImage&) { return ::testing::AssertionSuccess(); }, // `call` has asked
            .input = "InImg1",
            .output = "InImg2",
            .mismatch = "sizes and element types have to be the same",
            .bWrites = false};
}

INSTANTIATE_TEST_SUITE_P(CompareImg, PixelwiseTest, ::testing::Values(compareOperator()));

void flip(image::BaseImage& image, const attr::PixelPosition& at)
{
    image.accessRow(at.y, at.z, at.c, at.t)[at.x * image::elementSize(image.getBufferType(at.t))] ^= std::byte{1};
}

TEST(CompareImgTest, EqualImagesHaveNoDifference)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const auto geometry = geometry5d(type, 37, 29, 4, 3, 2);
        const ImagePtr image = createImage(*geometry);
        testing::forEachRow(*image,
                            [&](unsigned long, std::byte* row) { std::memset(row, 1, 37 * image::elementSize(type)); });
        const auto result = compareImg(image, testing::plainCopy(*image));
        EXPECT_TRUE(result->identical);
        EXPECT_EQ(result->nbDifferentPixels, 0u);
        EXPECT_EQ(result->nbComparedPixels, 37u * 29 * 4 * 3 * 2);
        EXPECT_EQ(result->firstDifference, attr::PixelPosition());
        EXPECT_EQ(result->firstDifference.x, g_nowhere);
        EXPECT_EQ(result->firstValue1, NumericLimits<double>::s_max);
        EXPECT_EQ(result->firstValue2, NumericLimits<double>::s_max);
    }
}

TEST(CompareImgTest, AnyOnePixelIsFoundWhereItIs)
{
    const auto geometry = geometry5d(eImageBufferType::UInt16, 13, 11, 3, 2, 2);
    const ImagePtr first = makeRandom(*geometry);
    for (const attr::PixelPosition at :
         {attr::PixelPosition{0, 0, 0, 0, 0}, {12, 10, 2, 1, 1}, {5, 0, 0, 0, 1}, {0, 10, 2, 1, 0}, {7, 3, 1, 0, 1}}) {
        const ImagePtr second = testing::plainCopy(*first);
        flip(*second, at);
        const auto result = compareImg(first, second);
        EXPECT_FALSE(result->identical);
        EXPECT_EQ(result->nbDifferentPixels, 1u);
        EXPECT_EQ(result->nbComparedPixels, 13u * 11 * 3 * 2 * 2);
        EXPECT_EQ(result->firstDifference, at);
        EXPECT_EQ(result->firstValue1, image::planData<unsigned short>(*first, at.z, at.c, at.t)[at.y * 13 + at.x]);
        EXPECT_EQ(result->firstValue2, image::planData<unsigned short>(*second, at.z, at.c, at.t)[at.y * 13 + at.x]);
    }
}

TEST(CompareImgTest, TheFirstOfSeveralPlansCountsByZThenCThenT)
{
    const ImagePtr first = makeRandom(*geometry5d(eImageBufferType::UInt8, 5, 5, 2, 2, 2));
    const ImagePtr second = testing::plainCopy(*first);
    flip(*second, {0, 0, 0, 1, 0});
    flip(*second, {4, 4, 1, 0, 0});
    flip(*second, {0, 0, 0, 0, 1});
    const auto result = compareImg(first, second);
    EXPECT_EQ(result->nbDifferentPixels, 3u);
    EXPECT_EQ(result->firstDifference, (attr::PixelPosition{4, 4, 1, 0, 0}));
}

/// 28 strips of which many differ: whoever ends first, the upper one counts.
TEST(CompareImgTest, StripsAndThreadsGiveTheSameResult)
{
    const auto geometry = geometry5d(eImageBufferType::UInt16, 701, 997, 2, 1, 2);
    const ImagePtr first = makeRandom(*geometry, 1);
    const ImagePtr second = testing::plainCopy(*first);
    for (const unsigned long y : {996UL, 700UL, 500UL, 333UL, 332UL}) {
        flip(*second, {y % 701, y, 1, 0, 0});
        flip(*second, {3, y, 1, 0, 1});
    }
    const attr::CompareResult expected = expectedResult(*first, *second, {});
    EXPECT_EQ(expected.firstDifference, (attr::PixelPosition{332, 332, 1, 0, 0}));
    for (const testing::NamedExecutor& each : testing::makeAllExecutors()) {
        const testing::ScopedExecutor scope(each.executor);
        for (int repetition = 0; repetition < 3; ++repetition) {
            EXPECT_TRUE(sameResult(expected, *compareImg(first, second))) << each.name;
        }
    }
}

TEST(CompareImgTest, RandomImagesOfEveryTypeInEveryMode)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr first = makeRandom(*geometry2d(type, 301, 117), 1);
        const ImagePtr second = makeRandom(*geometry2d(type, 301, 117), 2);
        for (const Tolerance& tolerance : {Tolerance{0, 0, 0}, {1, 20, 0}, {2, 0, 0.5f}, {3, 20, 0.5f}}) {
            EXPECT_TRUE(comparesAsExpected(first, second, tolerance));
        }
    }
}

TEST(CompareImgTest, AnImageIsTheSameAsItself)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 64, 64));
    EXPECT_TRUE(compareImg(image, image)->identical);
}

TEST(CompareImgTest, AsynchronousForms)
{
    const ImagePtr first = makeRandom(*geometry2d(eImageBufferType::UInt8, 100, 100));
    const ImagePtr second = testing::plainCopy(*first);
    image::planData<unsigned char>(*second, 0, 0, 0)[205] ^= 4;
    const auto exact = compareImg_async(first, second);
    ASSERT_TRUE(exact->wait().getValue());
    EXPECT_TRUE(sameResult(expectedResult(*first, *second, {}), *getAsyncProcessorOutput(exact)));
    const auto tolerant = compareImg_async(first, second, attr::createImgComparisonAbsoluteTolerance(4));
    ASSERT_TRUE(tolerant->wait().getValue());
    EXPECT_TRUE(getAsyncProcessorOutput(tolerant)->identical);
}

TEST(CompareImgTest, ToleranceMakersSetTheirMode)
{
    const auto both = attr::createImgComparisonTolerance(2, 0.5f);
    EXPECT_EQ(both->mode, 3u);
    EXPECT_EQ(both->absoluteTolerance, 2);
    EXPECT_EQ(both->relativeTolerance, 0.5f);
    EXPECT_EQ(attr::createImgComparisonNoTolerance()->mode, 0u);
    EXPECT_EQ(attr::createImgComparisonAbsoluteTolerance(1)->mode, 1u);
    EXPECT_EQ(attr::createImgComparisonRelativeTolerance(1)->mode, 2u);
}

TEST(CompareImgTest, TheDefaultToleranceStaysOnAProcessorThatRunsAgain)
{
    const ImagePtr image = makeRandom(*geometry2d(eImageBufferType::UInt8, 10, 10));
    const auto processor = boost::make_shared<CompareImgLvl1>();
    ASSERT_TRUE(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck).getValue());
    processor->set<attr::InImg1>(image);
    processor->set<attr::InImg2>(image);
    processor::executeSyncRun(processor);
    EXPECT_TRUE(processor->getAttribute("InOptImgComparisonTolerance").isSet());
    const auto given = processor->getStorage<attr::OutCompareResult>();
    const ImagePtr other = makeRandom(*geometry2d(eImageBufferType::UInt8, 10, 10), 2);
    processor->set<attr::InImg2>(other);
    processor::executeSyncRun(processor);
    EXPECT_EQ(processor->getStorage<attr::OutCompareResult>(), given) << "the result that it holds is filled again";
    EXPECT_TRUE(sameResult(expectedResult(*image, *other, {}), *given));
}

TEST(CompareImgTest, ImagesThatCannotBeComparedAreRefused)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 10, 10));
    const ImagePtr like = createImage(*geometry2d(eImageBufferType::eBufferUInt8Like, 10, 10));
    EXPECT_EQ(
        messageOf([&] { static_cast<void>(compareImg(image, like)); }),
        "InImg2 is 10x10x1x1x1 UInt8Like, InImg1 is 10x10x1x1x1 UInt8: sizes and element types have to be the same");
    EXPECT_NE(messageOf([&] { static_cast<void>(compareImg(image, image, nullptr)); }).find("ImgComparisonTolerance"),
              std::string::npos);
}

TEST(CompareImgTest, ALineOfNothingLeavesTheResultAsItWas)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 0, 3));
    const auto result = compareImg(image, image);
    EXPECT_TRUE(result->identical);
    EXPECT_EQ(result->nbComparedPixels, 0u);
}

} // namespace
} // namespace orlix::imaproc::util::test
