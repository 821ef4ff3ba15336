// convertImg as a caller sees it: its forms, sizes, layouts, executors, and what it refuses.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgChecks.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/SameImages.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace orlix::imaproc::util {
namespace {

using image::BaseImageGeometry;
using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using testing::converted;
using testing::fillRandom;
using testing::isConverted;
using testing::makeRandom;
using testing::messageOf;
using testing::sameImages;
using testing::WatchedImage;
using testing::WrapForm;

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

TEST(ConvertImgTest, emptyAxes)
{
    for (int axis = 0; axis < 5; ++axis) {
        unsigned long sizes[] = {7, 5, 3, 2, 2};
        sizes[axis] = 0;
        const ImagePtr in =
            createImage(*geometry5d(eImageBufferType::UInt16, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]));
        const ImagePtr out = convertImg(in, eImageBufferType::Real32);
        EXPECT_TRUE(out->getGeometry().hasSameSizes(in->getGeometry()));
        EXPECT_EQ(out->getBufferType(), eImageBufferType::Real32);
        convertImg(in, out);
    }
}

TEST(ConvertImgTest, stripsAndExecutorsGiveTheSameBytes)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::Real32, 701, 497, 2, 1, 2));
    for (const eImageBufferType to : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::UInt32}) {
        const ImagePtr expected = converted(in, to);
        EXPECT_TRUE(isConverted(*in, *expected));
        const auto check = [&](const std::string& name) {
            EXPECT_TRUE(sameImages(*expected, *converted(in, to))) << name;
        };
        for (const testing::NamedExecutor& named : testing::makeAllExecutors()) {
            const testing::ScopedExecutor scope(named.executor);
            check(named.name);
        }
        for (unsigned long nbThreads = 1; nbThreads <= 8; ++nbThreads) {
            const testing::ScopedExecutor scope(core::makePlainThreadExecutor(nbThreads));
            check(std::to_string(nbThreads) + " threads");
        }
    }
}

TEST(ConvertImgTest, wrappedMemoryIsTouchedNowhereElse)
{
    const WrapForm forms[] = {{testing::GuardEdge::eEnd, 0, 0},
                              {testing::GuardEdge::eBegin, 0, 0},
                              {testing::GuardEdge::eEnd, 3, 5},
                              {testing::GuardEdge::eEnd, 0, 7, 1, false},
                              {testing::GuardEdge::eBegin, 5, 0, 3, false}};
    const eImageBufferType types[] = {eImageBufferType::Int8, eImageBufferType::UInt16, eImageBufferType::Real32,
                                      eImageBufferType::eBufferBinary};
    for (const eImageBufferType from : types) {
        for (const eImageBufferType to : types) {
            for (const unsigned long sizeX : {1UL, 16UL, 61UL, 64UL, 130UL}) {
                const auto inGeometry = geometry5d(from, sizeX, 9, 2, 1, 2);
                const auto outGeometry = geometry5d(to, sizeX, 9, 2, 1, 2);
                for (const WrapForm& form : forms) {
                    const WatchedImage in(*inGeometry, form);
                    fillRandom(*in.get(), sizeX);
                    const WatchedImage out(*outGeometry, form);
                    convertImg(in.get(), out.get());
                    EXPECT_TRUE(isConverted(*in.get(), *out.get()));
                    EXPECT_TRUE(in.isOutsideIntact() && out.isOutsideIntact()) << sizeX;
                    EXPECT_TRUE(sameImages(*out.get(), *converted(in.get(), to)));
                }
            }
        }
    }
}

TEST(ConvertImgTest, largeWrappedImagesInManyStrips)
{
    const auto geometry = geometry2d(eImageBufferType::UInt8, 1021, 1500);
    const testing::ScopedExecutor scope(core::makePlainThreadExecutor(4));
    for (const unsigned long gap : {0UL, 3UL}) {
        const WatchedImage in(*geometry, {testing::GuardEdge::eEnd, gap, 0});
        fillRandom(*in.get(), gap);
        const WatchedImage out(*geometry2d(eImageBufferType::Int32, 1021, 1500),
                               {testing::GuardEdge::eEnd, 3 - gap, 0});
        convertImg(in.get(), out.get());
        EXPECT_TRUE(isConverted(*in.get(), *out.get()));
        EXPECT_TRUE(out.isOutsideIntact());
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

TEST(ConvertImgTest, calibrationGoesToTheMadeOutputAlone)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 8, 8));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init2d("um", 0.5F, 0.25F, 3, 4);
    in->setGeometricCalibration(calibration);
    EXPECT_EQ(*convertImg(in, eImageBufferType::Real32)->getGeometricCalibration(), *calibration);
    const ImagePtr given = createImage(*geometry2d(eImageBufferType::Int16, 8, 8));
    convertImg(in, given);
    EXPECT_FALSE(given->hasGeometricCalibration());
}

TEST(ConvertImgTest, otherSizesAreRefusedAndNothingIsReadOrWritten)
{
    // One element, taken for an image of 2^60: to read it would end the test.
    static unsigned char element = 0;
    const ImagePtr huge = image::wrapImage(*geometry5d(eImageBufferType::UInt8, 1UL << 20, 1UL << 20, 1UL << 20, 1, 1),
                                           &element, {1UL << 20, 1UL << 40, 1UL << 60, 1UL << 60}, nullptr);
    const ImagePtr narrow = makeRandom(*geometry2d(eImageBufferType::UInt16, 512, 256), 3);
    const std::vector<std::byte> before = testing::bytesOf(*narrow);
    EXPECT_EQ(messageOf([&] { convertImg(huge, narrow); }),
              "OutImg is 512x256x1x1x1 UInt16, InImg is 1048576x1048576x1048576x1x1 UInt8: sizes have to be the same");
    EXPECT_EQ(testing::bytesOf(*narrow), before);
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt8, 8, 7, 3, 2, 2));
    for (const auto& other :
         {geometry5d(eImageBufferType::UInt8, 9, 7, 3, 2, 2), geometry5d(eImageBufferType::UInt8, 8, 6, 3, 2, 2),
          geometry5d(eImageBufferType::UInt8, 8, 7, 2, 2, 2), geometry5d(eImageBufferType::UInt8, 8, 7, 3, 1, 2),
          geometry5d(eImageBufferType::UInt8, 8, 7, 3, 2, 1)}) {
        EXPECT_EQ(messageOf([&] { convertImg(in, createImage(*other)); }),
                  "OutImg is " + other->toString() + ", InImg is 8x7x3x2x2 UInt8: sizes have to be the same");
    }
}

TEST(ConvertImgTest, nullImages)
{
    EXPECT_EQ(messageOf([] { static_cast<void>(convertImg(ImageConstPtr(), eImageBufferType::UInt8)); }),
              "ConvertImgLvl1: attribute InImg holds a null pointer: give it an object that exists");
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 4, 4));
    EXPECT_EQ(messageOf([&] { convertImg(in, ImagePtr()); }),
              "ConvertImgLvl1: attribute OutImg holds a null pointer: give it an object that exists");
    EXPECT_EQ(messageOf([&] { convertImg(ImageConstPtr(), in); }),
              "ConvertImgLvl1: attribute InImg holds a null pointer: give it an object that exists");
}

TEST(ConvertImgTest, typesThatAreNoneAreRefused)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 4, 4));
    EXPECT_EQ(messageOf([&] { static_cast<void>(convertImg(in, eImageBufferType())); }),
              "OutImg is 4x4x1x1x1 UInt8, but has to be of element type none, as InConvertImageBufferType tells");
    EXPECT_NE(messageOf([&] { static_cast<void>(convertImg(in, static_cast<eImageBufferType::domain>(12))); }),
              "no exception");
}

TEST(ConvertImgTest, memoryThatCannotBeHad)
{
    static unsigned char element = 0;
    const ImagePtr in = image::wrapImage(*geometry5d(eImageBufferType::UInt8, 1UL << 20, 1UL << 20, 1UL << 20, 1, 1),
                                         &element, {1UL << 20, 1UL << 40, 1UL << 60, 1UL << 60}, nullptr);
    EXPECT_NE(messageOf([&] { static_cast<void>(convertImg(in, eImageBufferType::Real32)); }), "no exception");
}

TEST(ConvertImgTest, randomGeometries)
{
    EXPECT_TRUE(rc::check("every element is what the oracle says", [] {
        const auto size = [](unsigned long most) { return *rc::gen::inRange<unsigned long>(0, most + 1); };
        const auto type = [] { return image::g_allBufferTypes[*rc::gen::inRange<std::size_t>(0, 11)]; };
        const ImagePtr in = makeRandom(*geometry5d(type(), size(150), size(40), size(4), size(3), size(2)), size(1000));
        RC_ASSERT(static_cast<bool>(isConverted(*in, *converted(in, type()))));
    }));
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

TEST(ConvertImgAsyncTest, failureIsToldByWait)
{
    const std::string text = "ConvertImgLvl1: attribute InImg holds a null pointer: give it an object that exists";
    const boost::shared_ptr<ConvertImgLvl1> made = convertImg_async(ImageConstPtr(), eImageBufferType::UInt8);
    EXPECT_EQ(made->wait().getMessage(), text);
    EXPECT_EQ(getAsyncProcessorOutput(made), nullptr);
    const boost::shared_ptr<ConvertImgLvl1> given = convertImg_async(ImageConstPtr(), ImagePtr());
    EXPECT_EQ(given->wait().getMessage(), text);
}

TEST(ConvertImgAsyncTest, droppedPointerDoesNotEndTheRun)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 512, 512));
    const ImagePtr out = createImage(*geometry2d(eImageBufferType::Real32, 512, 512));
    boost::weak_ptr<ConvertImgLvl1> running = convertImg_async(in, out);
    while (const boost::shared_ptr<ConvertImgLvl1> held = running.lock()) {
        static_cast<void>(held->wait());
    }
    EXPECT_TRUE(isConverted(*in, *out));
}

} // namespace
} // namespace orlix::imaproc::util
