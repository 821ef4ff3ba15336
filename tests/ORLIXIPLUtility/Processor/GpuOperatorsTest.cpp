// Operators on images that lie on a device give what devices compute, of every type and size.
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/GpuChecks.h"
#include "ORLIXIPLUtility/Processor/EraseImg/EraseOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/StepImages.h"

#include <thread>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using image::g_allBufferTypes;
using image::geometry2d;
using image::geometry5d;
using image::toDevice;
using image::toHost;
using testing::interestingImage;
using testing::messageOf;
using testing::sameImages;

using GpuOperators = testing::GpuOperatorTest;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

/// Sizes of plans around one block, and of a few.
constexpr std::pair<unsigned long, unsigned long> g_planSizes[] = {{1, 1},   {31, 33}, {32, 32}, {33, 31},
                                                                   {1, 129}, {129, 1}, {65, 63}};

/// On the device, with other elements than any result has.
ImagePtr makeOutput(const image::BaseImageGeometry& geometry)
{
    return toDevice(*testing::makeRandom(geometry, 0xBAD));
}

std::string threshold(const ImageConstPtr& in, double min, double max, const ImagePtr& out)
{
    const auto level = testing::makeInitialised<BasicThresholdImgLvl1>();
    level->set<attr::InImg>(in);
    level->set<attr::InThresholdMin>(min);
    level->set<attr::InThresholdMax>(max);
    level->set<attr::OutBinImg>(out);
    return level->run(g_sync).getMessage();
}

TEST_F(GpuOperators, copyEveryTypeAndSize)
{
    for (const eImageBufferType type : g_allBufferTypes) {
        for (const auto& [sizeX, sizeY] : g_planSizes) {
            const ImagePtr in = interestingImage(*geometry2d(type, sizeX, sizeY));
            const ImagePtr out = makeOutput(in->getGeometry());
            EXPECT_TRUE(hasLaunched(0));
            copyImg(toDevice(*in), out);
            EXPECT_TRUE(hasLaunched(1));
            EXPECT_TRUE(sameImages(*toHost(*out), *in));
        }
    }
}

TEST_F(GpuOperators, copyEachPlanOfVolumesChannelsAndSequences)
{
    const ImagePtr in = testing::makeRandom(*geometry5d(eImageBufferType::UInt16, 33, 17, 3, 2, 2));
    const ImageConstPtr device = toDevice(*in);
    const ImagePtr out = copyImg(device);
    EXPECT_TRUE(hasLaunched(12));
    ASSERT_TRUE(out->isGpuImage()) << "an output is made where its input lies";
    EXPECT_FALSE(out->sharesPixelsWith(*device));
    EXPECT_TRUE(sameImages(*toHost(*out), *in));
}

TEST_F(GpuOperators, copySequencesWhoseStepsHaveTheirOwnTypes)
{
    const auto geometry =
        testing::withTypes(*geometry5d(eImageBufferType::UInt8, 20, 9, 2, 1, 1),
                           {eImageBufferType::Real32, eImageBufferType::Int8, eImageBufferType::UInt16});
    const ImagePtr in = testing::makeRandom(geometry);
    const ImagePtr out = copyImg(toDevice(*in));
    EXPECT_TRUE(hasLaunched(6));
    EXPECT_TRUE(sameImages(*toHost(*out), *in));
}

TEST_F(GpuOperators, eraseEveryTypeAsTheProcessorTakesValues)
{
    for (const eImageBufferType type : g_allBufferTypes) {
        for (const double value : {0.0, 77.9, -3.2, 300.7, 1e10}) {
            const ImagePtr image = makeOutput(*geometry5d(type, 33, 31, 2, 1, 1));
            eraseImg(image, value);
            EXPECT_TRUE(hasLaunched(2));
            EXPECT_TRUE(test::isErased(*toHost(*image), value));
        }
        const ImagePtr image = makeOutput(*geometry2d(type, 5, 7));
        eraseImg(image);
        EXPECT_TRUE(hasLaunched(1));
        EXPECT_TRUE(test::isErased(*toHost(*image), 0));
    }
}

TEST_F(GpuOperators, thresholdEveryTypeWithBoundsAsElementsTakeThem)
{
    for (const eImageBufferType type : g_allBufferTypes) {
        if (type == eImageBufferType::eBufferBinary) {
            continue; // bounds above 1 lie outside its range
        }
        const ImagePtr in = interestingImage(*geometry2d(type, 257, 259));
        const ImagePtr out = makeOutput(*geometry2d(eImageBufferType::eBufferBinary, 257, 259));
        EXPECT_EQ(threshold(toDevice(*in), 1.5, 100.7, out), "");
        EXPECT_TRUE(hasLaunched(1));
        image::visitStorageType(type, [&]<class T>() {
            const ImagePtr expected = testing::mapped<T, unsigned char>(*in, out->getGeometry(), [](T value) {
                return testing::thresholdedOnDevice<T>(value, static_cast<T>(1.5), static_cast<T>(100.7));
            });
            EXPECT_TRUE(sameImages(*toHost(*out), *expected));
        });
    }
    const ImagePtr binary = interestingImage(*geometry2d(eImageBufferType::eBufferBinary, 9, 3));
    const ImagePtr out = makeOutput(binary->getGeometry());
    EXPECT_EQ(threshold(toDevice(*binary), 1, 1, out), "");
    EXPECT_TRUE(sameImages(*toHost(*out), *testing::mapped<unsigned char, unsigned char>(
                                              *binary, out->getGeometry(),
                                              [](unsigned char value) -> unsigned char { return value == 1; })));
}

/// By the table of devices, not as the processor converts.
ImagePtr convertedImage(const image::BaseImage& in, eImageBufferType type)
{
    const auto geometry = geometry2d(type, in.getSizeX(), in.getSizeY());
    ImagePtr converted;
    image::visitStorageType(in.getBufferType(), [&]<class TIn>() {
        if (type == eImageBufferType::eBufferBinary) {
            converted = testing::mapped<TIn, unsigned char>(in, *geometry, testing::madeBinaryOnDevice<TIn>);
        } else {
            image::visitStorageType(type, [&]<class TOut>() {
                converted = testing::mapped<TIn, TOut>(in, *geometry, testing::convertedOnDevice<TOut, TIn>);
            });
        }
    });
    return converted;
}

TEST_F(GpuOperators, convertEveryPairOfTypesByTheRulesOfDevices)
{
    for (const eImageBufferType from : g_allBufferTypes) {
        const ImagePtr in = interestingImage(*geometry2d(from, 257, 257)); // all values of 16 bits
        const ImagePtr device = toDevice(*in);
        for (const eImageBufferType to : g_allBufferTypes) {
            const ImagePtr out = convertImg(device, to);
            EXPECT_TRUE(hasLaunched(1));
            ASSERT_TRUE(out->isGpuImage());
            EXPECT_TRUE(sameImages(*toHost(*out), *convertedImage(*in, to)))
                << image::getBufferTypeName(from) << " to " << image::getBufferTypeName(to);
        }
    }
}

TEST_F(GpuOperators, haveNothingToDoInPlace)
{
    const ImagePtr host = interestingImage(*geometry2d(eImageBufferType::Real32, 20, 19));
    const ImagePtr device = toDevice(*host);
    ImagePtr same;
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(0, 0, 0, *device, same));
    for (const ImagePtr& out : {device, same}) {
        copyImg(device, out);
        convertImg(device, out);
    }
    EXPECT_TRUE(hasLaunched(0));
    EXPECT_TRUE(sameImages(*toHost(*device), *host));
}

TEST_F(GpuOperators, takeViewsForWhatTheyShow)
{
    const ImagePtr host = testing::makeRandom(*geometry5d(eImageBufferType::UInt8, 21, 8, 3, 1, 1));
    const ImagePtr device = toDevice(*host);
    ImagePtr plan;
    ASSERT_TRUE(image::SubImageExtractor::extractPlan(1, 0, 0, *device, plan));
    eraseImg(plan, 9);
    EXPECT_TRUE(hasLaunched(1));
    const ImagePtr erased = testing::plainCopy(*host);
    for (unsigned long y = 0; y < 8; ++y) {
        std::memset(erased->accessRow(y, 1, 0, 0), 9, 21);
    }
    EXPECT_TRUE(sameImages(*toHost(*device), *erased));
}

TEST_F(GpuOperators, workAsynchronously)
{
    const ImagePtr host = testing::makeRandom(*geometry5d(eImageBufferType::Int16, 40, 20, 2, 1, 1));
    const auto run = copyImg_async(toDevice(*host));
    ASSERT_TRUE(run->wait());
    EXPECT_TRUE(hasLaunched(2));
    EXPECT_TRUE(sameImages(*toHost(*getAsyncProcessorOutput(run)), *host));
}

TEST_F(GpuOperators, workOnSeveralThreads)
{
    const ImagePtr host = interestingImage(*geometry2d(eImageBufferType::UInt16, 100, 90));
    const ImagePtr expected = convertedImage(*host, eImageBufferType::Int8);
    const ImagePtr device = toDevice(*host);
    std::vector<ImagePtr> results(4);
    std::vector<std::thread> threads;
    for (ImagePtr& result : results) {
        threads.emplace_back([&] {
            for (int run = 0; run < 5; ++run) {
                result = toHost(*convertImg(copyImg(device), eImageBufferType::Int8));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_TRUE(hasLaunched(40));
    for (const ImagePtr& result : results) {
        EXPECT_TRUE(sameImages(*result, *expected));
    }
}

TEST_F(GpuOperators, leaveImagesOfTheHostToTheProcessor)
{
    const ImagePtr host = testing::makeRandom(*geometry5d(eImageBufferType::UInt32, 50, 20, 2, 1, 1));
    EXPECT_TRUE(sameImages(*copyImg(host), *host));
    EXPECT_TRUE(hasLaunched(0));
}

TEST_F(GpuOperators, refuseImagesOfHostAndDeviceTogether)
{
    const ImagePtr host = testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 50, 20));
    const ImagePtr other = testing::makeRandom(host->getGeometry(), 2);
    const ImagePtr device = toDevice(*other);
    const ImagePtr before = testing::plainCopy(*host);
    const ImagePtr mask = toDevice(*image::createImage(*geometry2d(eImageBufferType::eBufferBinary, 50, 20)));
    for (const auto& [text, attribute] : {std::pair{messageOf([&] { copyImg(device, host); }), "InYStrip2d"},
                                          std::pair{messageOf([&] { copyImg(host, device); }), "OutYStrip2d"},
                                          std::pair{messageOf([&] { convertImg(device, host); }), "InYStrip2d"},
                                          std::pair{threshold(host, 1, 2, mask), "OutBinYStrip2d"}}) {
        EXPECT_EQ(text.find("The image of " + std::string(attribute) + ", which is 50x20x1x1x1 "), 0U) << text;
        EXPECT_NE(text.find("is on a GPU, but has to be in the memory of the host"), std::string::npos) << text;
    }
    EXPECT_TRUE(hasLaunched(0));
    EXPECT_TRUE(sameImages(*host, *before)) << "nothing is written";
    EXPECT_TRUE(sameImages(*toHost(*device), *other));
}

TEST_F(GpuOperators, refuseDeviceImagesWhereSupportIsOff)
{
    const ImagePtr host = testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 50, 20));
    const ImagePtr device = toDevice(*host);
    ASSERT_TRUE(core::setGpuSupportActivated(false));
    EXPECT_NE(messageOf([&] { static_cast<void>(copyImg(device)); }).find("GPU support switched on"),
              std::string::npos);
    EXPECT_NE(messageOf([&] { eraseImg(device); }).find("GPU support switched on"), std::string::npos);
    EXPECT_TRUE(hasLaunched(0));
    EXPECT_TRUE(sameImages(*toHost(*device), *host));
    ASSERT_TRUE(core::setGpuSupportActivated(true));
    EXPECT_TRUE(sameImages(*toHost(*copyImg(device)), *host)) << "and go on once it is on";
}

TEST_F(GpuOperators, haveNothingToDoForImagesWithoutPixels)
{
    for (const auto& geometry : {geometry2d(eImageBufferType::Int8, 0, 5), geometry2d(eImageBufferType::Int8, 5, 0),
                                 geometry5d(eImageBufferType::Int8, 5, 5, 1, 0, 1)}) {
        const ImagePtr device = image::createCudaImage(*geometry);
        EXPECT_TRUE(copyImg(device)->isGpuImage());
        eraseImg(device);
        EXPECT_TRUE(hasLaunched(0));
    }
}

} // namespace
} // namespace orlix::imaproc::util
