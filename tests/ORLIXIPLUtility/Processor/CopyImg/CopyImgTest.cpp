// copyImg as a caller sees it.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/CopyImg/CopyChecks.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/PixelwiseTest.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::makeRandom;
using testing::messageOf;
using testing::PixelwiseTest;
using testing::sameImages;

boost::shared_ptr<CopyImgLvl1> prepareCopy(const ImageConstPtr& in, const ImagePtr& out)
{
    const auto copy = testing::makeInitialised<CopyImgLvl1>();
    copy->set<attr::InImg>(in);
    copy->set<attr::OutImg>(out);
    return copy;
}

testing::PixelwiseOperator copyOperator()
{
    std::vector<testing::ElementTypes> types;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        types.push_back({type, type});
    }
    return {.name = "CopyImgLvl1",
            .types = types,
            .call = [](const ImageConstPtr& in, const ImagePtr& out) { copyImg(in, out); },
            .make = [](const ImageConstPtr& in, eImageBufferType) { return copyImg(in); },
            .start = [](const ImageConstPtr& in, const ImagePtr& out) { return copyImg_async(in, out); },
            .prepare = prepareCopy,
            .isRight = sameImages,
            .mismatch = "sizes and element types have to be the same"};
}

INSTANTIATE_TEST_SUITE_P(CopyImg, PixelwiseTest, ::testing::Values(copyOperator()));

TEST(CopyImgTest, typesThatDifferByStep)
{
    image::TemporalGeometry temporal;
    temporal.initSequence(3);
    const image::BaseImageGeometry geometry(
        {eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::Int16}, 33, 21, {}, {}, temporal);
    const ImagePtr in = makeRandom(geometry);
    const ImagePtr out = copied(in);
    EXPECT_TRUE(out->getGeometry().hasSameBufferTypes(geometry));
    EXPECT_TRUE(sameImages(*in, *out));
}

TEST(CopyImgTest, samePixelsStayAsTheyWere)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 50, 40, 3, 1, 1));
    const std::vector<std::byte> before = testing::bytesOf(*in);
    copyImg(in, in);
    ImagePtr one;
    ImagePtr other;
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *in, one));
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *in, other));
    copyImg(one, other);
    EXPECT_EQ(testing::bytesOf(*in), before);
}

TEST(CopyImgTest, ontoItselfNothingIsDispatched)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 20, 10, 3, 2, 2));
    const auto copy = prepareCopy(in, in);
    unsigned long nbCalls = 0;
    copy->setProgressObserver([&](const core::Progress&) { ++nbCalls; });
    EXPECT_TRUE(copy->run(core::eSynchroType::eSynchroSync));
    EXPECT_EQ(nbCalls, 0U);
}

TEST(CopyImgTest, anOutputOfAnotherTypeIsRefusedAndNothingWritten)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 512, 512));
    const ImagePtr out = makeRandom(*geometry2d(eImageBufferType::eBufferBinary, 512, 512), 3);
    const ImagePtr before = testing::plainCopy(*out);
    EXPECT_EQ(messageOf([&] { copyImg(in, out); }), "OutImg is 512x512x1x1x1 Binary, InImg is 512x512x1x1x1 UInt8: "
                                                    "sizes and element types have to be the same");
    EXPECT_TRUE(sameImages(*before, *out));
}

TEST(CopyImgTest, asynchronousRunsGiveTheirOutput)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::Int32, 300, 200));
    const boost::shared_ptr<CopyImgLvl1> made = copyImg_async(in);
    EXPECT_TRUE(made->wait());
    EXPECT_TRUE(made->isFinished());
    EXPECT_TRUE(sameImages(*in, *getAsyncProcessorOutput(made)));

    const ImagePtr out = createImage(in->getGeometry());
    const boost::shared_ptr<CopyImgLvl1> given = copyImg_async(in, out);
    EXPECT_TRUE(given->wait());
    EXPECT_EQ(getAsyncProcessorOutput(given), out);
    EXPECT_TRUE(sameImages(*in, *out));
}

TEST(CopyImgTest, aFailedAsynchronousRunHasNoOutput)
{
    const boost::shared_ptr<CopyImgLvl1> failed = copyImg_async(ImageConstPtr());
    EXPECT_EQ(failed->wait().getMessage(),
              "CopyImgLvl1: attribute InImg holds a null pointer: give it an object that exists");
    EXPECT_EQ(getAsyncProcessorOutput(failed), nullptr);
}

} // namespace
} // namespace orlix::imaproc::util
