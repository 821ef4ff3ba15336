// copyImg as a caller sees it: whole images of every type, size, layout and executor.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/CopyImg/CopyChecks.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/Images.h"
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
using testing::fillRandom;
using testing::makeRandom;
using testing::messageOf;
using testing::sameImages;
using testing::WatchedImage;
using testing::WrapForm;

TEST(CopyImgTest, everyTypeAndLineLength)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        for (const unsigned long sizeX :
             {1UL, 2UL, 15UL, 16UL, 17UL, 31UL, 33UL, 63UL, 64UL, 65UL, 127UL, 199UL, 1023UL}) {
            for (const unsigned long sizeY : {1UL, 3UL, 64UL}) {
                const ImagePtr in = makeRandom(*geometry2d(type, sizeX, sizeY), sizeX);
                const ImagePtr made = copied(in);
                EXPECT_NE(made, in);
                EXPECT_TRUE(sameImages(*in, *made));
                const ImagePtr given = makeRandom(in->getGeometry(), 99);
                copyImg(in, given);
                EXPECT_TRUE(sameImages(*in, *given));
            }
        }
    }
}

TEST(CopyImgTest, fiveAxes)
{
    for (const eImageBufferType type : {eImageBufferType::Int8, eImageBufferType::UInt16, eImageBufferType::Real32}) {
        const ImagePtr in = makeRandom(*geometry5d(type, 37, 29, 4, 3, 2));
        EXPECT_TRUE(sameImages(*in, *copied(in)));
    }
}

TEST(CopyImgTest, emptyAxes)
{
    for (int axis = 0; axis < 5; ++axis) {
        unsigned long sizes[] = {7, 5, 3, 2, 2};
        sizes[axis] = 0;
        const ImagePtr in =
            createImage(*geometry5d(eImageBufferType::UInt16, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]));
        const ImagePtr out = copyImg(in);
        EXPECT_TRUE(out->getGeometry().hasSameSizes(in->getGeometry()));
        copyImg(in, out);
    }
}

TEST(CopyImgTest, stripsAndExecutorsGiveTheSameBytes)
{
    const ImagePtr in = makeRandom(*geometry5d(eImageBufferType::UInt16, 701, 997, 2, 1, 2)); // 28 strips
    for (const testing::NamedExecutor& named : testing::makeAllExecutors()) {
        const testing::ScopedExecutor scope(named.executor);
        EXPECT_TRUE(sameImages(*in, *copied(in))) << named.name;
    }
}

TEST(CopyImgTest, wrappedMemoryIsTouchedNowhereElse)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        for (const unsigned long sizeX : {1UL, 16UL, 61UL, 64UL, 130UL}) {
            const auto geometry = geometry5d(type, sizeX, 9, 2, 1, 2);
            const ImagePtr reference = makeRandom(*geometry, sizeX);
            const WrapForm forms[] = {{testing::GuardEdge::eEnd, 0, 0},
                                      {testing::GuardEdge::eBegin, 0, 0},
                                      {testing::GuardEdge::eEnd, 3, 5},
                                      {testing::GuardEdge::eEnd, 0, 7, 1, false},
                                      {testing::GuardEdge::eBegin, 5, 0, 3, false}};
            for (const WrapForm& form : forms) {
                const WatchedImage wrapped(*geometry, form);
                copyImg(reference, wrapped.get());
                EXPECT_TRUE(sameImages(*reference, *wrapped.get()));
                EXPECT_TRUE(wrapped.isOutsideIntact()) << image::getBufferTypeName(type) << " " << sizeX;
                const WatchedImage other(*geometry, forms[2]);
                copyImg(wrapped.get(), other.get());
                EXPECT_TRUE(sameImages(*reference, *other.get()));
                EXPECT_TRUE(wrapped.isOutsideIntact() && other.isOutsideIntact());
            }
        }
    }
}

TEST(CopyImgTest, largeWrappedImageInManyStrips)
{
    const auto geometry = geometry2d(eImageBufferType::UInt8, 1021, 1500);
    const ImagePtr in = makeRandom(*geometry);
    const testing::ScopedExecutor scope(core::makePlainThreadExecutor(4));
    for (const unsigned long gap : {0UL, 3UL}) {
        const WatchedImage out(*geometry, {testing::GuardEdge::eEnd, gap, 0});
        copyImg(in, out.get());
        EXPECT_TRUE(sameImages(*in, *out.get()));
        EXPECT_TRUE(out.isOutsideIntact());
    }
}

TEST(CopyImgTest, typesThatDifferByStep)
{
    image::TemporalGeometry temporal;
    temporal.initSequence(3);
    const BaseImageGeometry geometry({eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::Int16}, 33,
                                     21, {}, {}, temporal);
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

TEST(CopyImgTest, calibrationGoesToTheMadeOutputAlone)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 8, 8));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init2d("um", 0.5F, 0.25F, 3, 4);
    in->setGeometricCalibration(calibration);
    EXPECT_EQ(*copyImg(in)->getGeometricCalibration(), *calibration);
    const ImagePtr given = createImage(in->getGeometry());
    copyImg(in, given);
    EXPECT_FALSE(given->hasGeometricCalibration());
}

TEST(CopyImgTest, mismatchIsRefusedAndNothingWritten)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 512, 512));
    const ImagePtr narrow = makeRandom(*geometry2d(eImageBufferType::UInt8, 512, 256), 3);
    const std::vector<std::byte> before = testing::bytesOf(*narrow);
    EXPECT_EQ(
        messageOf([&] { copyImg(in, narrow); }),
        "OutImg is 512x256x1x1x1 UInt8, InImg is 512x512x1x1x1 UInt8: sizes and element types have to be the same");
    EXPECT_EQ(testing::bytesOf(*narrow), before);
    EXPECT_NE(messageOf([&] {
                  copyImg(in, createImage(*geometry2d(eImageBufferType::eBufferBinary, 512, 512)));
              }).find("512x512x1x1x1 Binary"),
              std::string::npos);
}

TEST(CopyImgTest, nullImages)
{
    EXPECT_EQ(messageOf([] { static_cast<void>(copyImg(ImageConstPtr())); }),
              "CopyImgLvl1: attribute InImg holds a null pointer: give it an object that exists");
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 4, 4));
    EXPECT_EQ(messageOf([&] { copyImg(in, ImagePtr()); }),
              "CopyImgLvl1: attribute OutImg holds a null pointer: give it an object that exists");
}

TEST(CopyImgTest, memoryThatCannotBeHad)
{
    // One element, taken for an image of 2^60 bytes: never read, since the output can't be made.
    static unsigned char element = 0;
    const ImagePtr in = image::wrapImage(*geometry5d(eImageBufferType::UInt8, 1UL << 20, 1UL << 20, 1UL << 20, 1, 1),
                                         &element, {1UL << 20, 1UL << 40, 1UL << 60, 1UL << 60}, nullptr);
    EXPECT_NE(messageOf([&] { static_cast<void>(copyImg(in)); }), "no exception");
}

TEST(CopyImgTest, randomGeometries)
{
    EXPECT_TRUE(rc::check("a copy equals its source", [] {
        const auto size = [](unsigned long most) { return *rc::gen::inRange<unsigned long>(0, most + 1); };
        const eImageBufferType type = image::g_allBufferTypes[*rc::gen::inRange<std::size_t>(0, 11)];
        const ImagePtr in = makeRandom(*geometry5d(type, size(150), size(40), size(4), size(3), size(2)), size(1000));
        RC_ASSERT(static_cast<bool>(sameImages(*in, *copied(in))));
    }));
}

TEST(CopyImgAsyncTest, madeAndGivenOutput)
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

TEST(CopyImgAsyncTest, failureIsToldByWait)
{
    const boost::shared_ptr<CopyImgLvl1> running = copyImg_async(ImageConstPtr());
    const ProcessingResult<bool> result = running->wait();
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), "CopyImgLvl1: attribute InImg holds a null pointer: give it an object that exists");
}

TEST(CopyImgAsyncTest, droppedPointerDoesNotEndTheRun)
{
    const ImagePtr in = makeRandom(*geometry2d(eImageBufferType::UInt8, 512, 512));
    const ImagePtr out = createImage(in->getGeometry());
    boost::weak_ptr<CopyImgLvl1> running = copyImg_async(in, out);
    while (const boost::shared_ptr<CopyImgLvl1> held = running.lock()) {
        static_cast<void>(held->wait());
    }
    EXPECT_TRUE(sameImages(*in, *out));
}

} // namespace
} // namespace orlix::imaproc::util
