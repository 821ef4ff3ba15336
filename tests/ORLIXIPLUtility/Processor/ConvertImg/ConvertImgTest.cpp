// convertImg as a caller sees it: its forms, and what it refuses.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgChecks.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/PixelwiseTest.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::BaseImageGeometry;
using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::converted;
using testing::isConverted;
using testing::makeRandom;
using testing::messageOf;
using testing::PixelwiseTest;
using testing::sameImages;

testing::PixelwiseOperator convertOperator()
{
    using Type = eImageBufferType;
    const auto prepare = [](const ImageConstPtr& in, const ImagePtr& out) {
        const auto conversion = testing::makeInitialised<ConvertImgLvl1>();
        conversion->set<attr::InImg>(in);
        conversion->set<attr::InConvertImageBufferType>(out->getBufferType());
        conversion->set<attr::OutImg>(out);
        return conversion;
    };
    return {.name = "ConvertImgLvl1",
            // wider, narrower and of the same width, from and to real numbers and binary
            .types = {{Type::UInt8, Type::Int32},
                      {Type::Int8, Type::UInt16},
                      {Type::UInt16, Type::Int8},
                      {Type::Int16, Type::UInt16},
                      {Type::Int32, Type::UInt8},
                      {Type::UInt32, Type::Int16},
                      {Type::UInt8, Type::Real32},
                      {Type::UInt32, Type::Real32},
                      {Type::Real32, Type::UInt16},
                      {Type::Real32, Type::eBufferBinary},
                      {Type::eBufferBinary, Type::Real32},
                      {Type::eBufferUInt16Like, Type::eBufferUInt16Like},
                      {Type::Real32, Type::UInt32}},
            .call = [](const ImageConstPtr& in, const ImagePtr& out) { convertImg(in, out); },
            .make = [](const ImageConstPtr& in, Type to) { return convertImg(in, to); },
            .start = [](const ImageConstPtr& in, const ImagePtr& out) { return convertImg_async(in, out); },
            .prepare = prepare,
            .isRight = isConverted};
}

INSTANTIATE_TEST_SUITE_P(ConvertImg, PixelwiseTest, ::testing::Values(convertOperator()));

TEST(ConvertImgTest, everyPairOfTypesInBothForms)
{
    for (const eImageBufferType from : image::g_allBufferTypes) {
        const ImagePtr in = makeRandom(*geometry5d(from, 37, 29, 2, 3, 2));
        const ImagePtr before = testing::plainCopy(*in);
        for (const eImageBufferType to : image::g_allBufferTypes) {
            const ImagePtr made = converted(in, to);
            EXPECT_NE(made, in);
            EXPECT_EQ(made->getGeometry().toString(), geometry5d(to, 37, 29, 2, 3, 2)->toString());
            EXPECT_TRUE(isConverted(*in, *made));
            const ImagePtr given = makeRandom(made->getGeometry(), 99);
            convertImg(in, given);
            EXPECT_TRUE(sameImages(*made, *given));
        }
        EXPECT_TRUE(sameImages(*before, *in));
    }
}

TEST(ConvertImgTest, toItsOwnTypeItIsACopyButForBinary)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr in = makeRandom(*geometry2d(type, 300, 20));
        const ImagePtr out = converted(in, type);
        EXPECT_NE(out, in);
        EXPECT_FALSE(out->sharesPixelsWith(*in));
        if (type != eImageBufferType::eBufferBinary) {
            EXPECT_TRUE(sameImages(*in, *out));
        } else {
            for (unsigned long i = 0; i < 6000; ++i) {
                const unsigned char value = image::planData<unsigned char>(*in, 0, 0, 0)[i];
                EXPECT_EQ(image::planData<unsigned char>(*out, 0, 0, 0)[i], value == 0 ? 0 : 1);
            }
        }
    }
}

TEST(ConvertImgTest, thereAndBackForValuesThatBothTypesHold)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 511, 33));
    for (const eImageBufferType by : image::g_allBufferTypes) {
        if (by != eImageBufferType::eBufferBinary) {
            EXPECT_TRUE(sameImages(*in, *convertImg(convertImg(in, by), eImageBufferType::UInt8)))
                << image::getBufferTypeName(by);
        }
    }
}

TEST(ConvertImgTest, typesThatDifferByStepBecomeOne)
{
    image::TemporalGeometry temporal;
    temporal.initSequence(3);
    const BaseImageGeometry geometry({eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::Int16}, 33,
                                     21, {}, {}, temporal);
    const ImagePtr in = makeRandom(geometry);
    const ImagePtr out = converted(in, eImageBufferType::UInt16);
    EXPECT_EQ(out->getGeometry().toString(), "33x21x1x1x3 UInt16");
    EXPECT_TRUE(isConverted(*in, *out));
    EXPECT_EQ(
        messageOf([&] { convertImg(out, in); }),
        "OutImg is 33x21x1x1x3 UInt8/Real32/Int16, but has to be of element type UInt8, as InConvertImageBufferType "
        "tells");
}

TEST(ConvertImgTest, samePixelsStayAsTheyWere)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::eBufferBinary, 50, 40, 3, 1, 1));
    const std::vector<std::byte> before = testing::bytesOf(*in);
    convertImg(in, in); // nothing is normalised
    ImagePtr one;
    ImagePtr other;
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *in, one));
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *in, other));
    convertImg(one, other);
    EXPECT_EQ(testing::bytesOf(*in), before);
}

TEST(ConvertImgTest, typesThatAreNoneAreRefused)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 4, 4));
    EXPECT_EQ(messageOf([&] { static_cast<void>(convertImg(in, eImageBufferType())); }),
              "OutImg is 4x4x1x1x1 UInt8, but has to be of element type none, as InConvertImageBufferType tells");
    EXPECT_NE(messageOf([&] { static_cast<void>(convertImg(in, static_cast<eImageBufferType::domain>(12))); }),
              "no exception");
}

TEST(ConvertImgAsyncTest, aFailedRunHasNoOutput)
{
    const boost::shared_ptr<ConvertImgLvl1> made = convertImg_async(ImageConstPtr(), eImageBufferType::UInt8);
    EXPECT_EQ(made->wait().getMessage(),
              "ConvertImgLvl1: attribute InImg holds a null pointer: give it an object that exists");
    EXPECT_EQ(getAsyncProcessorOutput(made), nullptr);
}

TEST(ConvertImgAsyncTest, madeAndGivenOutput)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::Int32, 300, 200));
    const boost::shared_ptr<ConvertImgLvl1> made = convertImg_async(in, eImageBufferType::UInt8);
    EXPECT_TRUE(made->wait());
    EXPECT_TRUE(made->isFinished());
    EXPECT_TRUE(isConverted(*in, *getAsyncProcessorOutput(made)));

    const ImagePtr out = createImage(*geometry2d(eImageBufferType::Real32, 300, 200));
    const boost::shared_ptr<ConvertImgLvl1> given = convertImg_async(in, out);
    EXPECT_TRUE(given->wait());
    EXPECT_EQ(getAsyncProcessorOutput(given), out);
    EXPECT_TRUE(isConverted(*in, *out));
}

} // namespace
} // namespace orlix::imaproc::util
