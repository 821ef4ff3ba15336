// gaussianRandomImg as a caller sees it.
#include "ORLIXIPLUtility/Processor/RandomImages.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/PixelwiseTest.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util::test {
namespace {

using attr::createGaussianParameter;
using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using testing::PixelwiseTest;

const auto g_parameter = createGaussianParameter(60.25, 25.5);

::testing::AssertionResult isNormal(const image::BaseImage& image)
{
    return isRandom<GaussianRandomImgLvl3>(
        image, runOfChecks(),
        []<class T>(eInstructionSet::domain set, const std::vector<unsigned>& states, unsigned long nb) {
            return simd::test::normalOracle<T>(set, 60.25F, 25.5F, states, nb);
        });
}

testing::PixelwiseOperator gaussianOperator()
{
    std::vector<testing::ElementTypes> types;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        types.push_back({type, type});
    }
    return {
        .name = "GaussianRandomImgLvl1",
        .types = types,
        .call = [](const ImageConstPtr&, const ImagePtr& out) { gaussianRandomImg(g_parameter, out); },
        .start = [](const ImageConstPtr&, const ImagePtr& out) { return gaussianRandomImg_async(g_parameter, out); },
        .prepare =
            [](const ImageConstPtr&, const ImagePtr& out) {
                const auto random = testing::makeInitialised<GaussianRandomImgLvl1>();
                random->set<attr::InGaussianParameter>(g_parameter);
                random->set<attr::OutImg>(out);
                return random;
            },
        .isRight = [](const image::BaseImage&, const image::BaseImage& out) { return isNormal(out); },
        .input = ""};
}

INSTANTIATE_TEST_SUITE_P(GaussianRandomImg, PixelwiseTest, ::testing::Values(gaussianOperator()));
[[maybe_unused]] const bool g_bListening =
    (::testing::UnitTest::GetInstance()->listeners().Append(new RunOfSuite("GaussianRandomImg/PixelwiseTest")), true);

TEST(GaussianRandomImgTest, noParameterIsRefused)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = createImage(*geometry2d(type, 300, 50));
        for (const auto& [mean, stdDev] :
             {std::pair{1.0, 0.0}, {1.0, -2.0}, {nan, 1.0}, {0.0, nan}, {1e300, 1.0}, {0.0, 1e300}}) {
            EXPECT_NO_THROW(gaussianRandomImg(createGaussianParameter(mean, stdDev), image));
        }
        gaussianRandomImg(createGaussianParameter(1, 0), image);
        const ImagePtr erased = createImage(*geometry2d(type, 300, 50));
        eraseImg(erased, 1.0);
        EXPECT_TRUE(testing::sameImages(*erased, *image)) << "a deviation of 0 gives the mean";
    }
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 300, 50));
    gaussianRandomImg(createGaussianParameter(1000, 20), image);
    const ImagePtr erased = createImage(*geometry2d(eImageBufferType::UInt8, 300, 50));
    eraseImg(erased, 255.0);
    EXPECT_TRUE(testing::sameImages(*erased, *image));
    EXPECT_EQ(
        testing::messageOf([&] { gaussianRandomImg({}, image); }),
        "GaussianRandomImgLvl1: attribute InGaussianParameter holds a null pointer: give it an object that exists");
}

TEST(GaussianRandomImgTest, outputOfAnAsynchronousRun)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Int32, 300, 50));
    const auto running = gaussianRandomImg_async(g_parameter, image);
    EXPECT_TRUE(running->wait());
    EXPECT_EQ(getAsyncProcessorOutput(running), image);
}

} // namespace
} // namespace orlix::imaproc::util::test
