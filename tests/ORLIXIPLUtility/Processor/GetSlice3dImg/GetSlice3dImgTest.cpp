// getSlice3dImg as a caller sees it.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/GetSlice3dImg/SliceOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/SameImages.h"

#include <rapidcheck.h>

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using testing::makeRandom;
using testing::messageOf;
using testing::sameImages;

TEST(GetSlice3dImgTest, everyTypeAxisAndShape)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        for (const Sizes& sizes : g_volumes) {
            const ImagePtr in = makeRandom(*volumeOf(type, sizes), sizes[0]);
            const ImagePtr before = testing::plainCopy(*in);
            for (const eAxis::domain axis : g_axes) {
                for (const unsigned long index : someIndices(sizes, axis)) {
                    SCOPED_TRACE(nameOf(*in, axis, index));
                    const ImagePtr expected = plainSlice(*in, axis, index);
                    const ImagePtr made = testing::makeOnSpoiltMemory(expected->getGeometry(),
                                                                      [&] { return getSlice3dImg(in, axis, index); });
                    ASSERT_TRUE(sameImages(*expected, *made));
                    EXPECT_FALSE(made->getGeometry().getVolumeGeometry().is3d());
                    const ImagePtr given = makeRandom(expected->getGeometry(), 77);
                    getSlice3dImg(in, axis, index, given);
                    ASSERT_TRUE(sameImages(*expected, *given));
                }
            }
            EXPECT_TRUE(sameImages(*before, *in)) << "the input is only read";
        }
    }
}

TEST(GetSlice3dImgTest, memoryOfOthers)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const Sizes& sizes : g_volumes) {
            for (const testing::WrapForm& form : g_wrapForms) {
                const testing::WatchedImage in(*volumeOf(type, sizes), form);
                testing::fillRandom(*in.get(), 3);
                for (const eAxis::domain axis : g_axes) {
                    const testing::WatchedImage out(*sliceOf(type, sizes, axis), form);
                    for (const unsigned long index : someIndices(sizes, axis)) {
                        SCOPED_TRACE(nameOf(*in.get(), axis, index));
                        getSlice3dImg(in.get(), axis, index, out.get());
                        ASSERT_TRUE(sameImages(*plainSlice(*in.get(), axis, index), *out.get()));
                        ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact());
                    }
                }
            }
        }
    }
}

TEST(GetSlice3dImgTest, manyStripsUnderEveryExecutor)
{
    const Sizes sizes = {70, 301, 211, 1, 2};
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, sizes));
    for (const testing::NamedExecutor& each : testing::makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const testing::ScopedExecutor scoped(each.executor);
        for (const eAxis::domain axis : g_axes) {
            const ImagePtr out = makeRandom(*sliceOf(eImageBufferType::UInt8, sizes, axis), 5);
            getSlice3dImg(in, axis, 43, out);
            EXPECT_TRUE(sameImages(*plainSlice(*in, axis, 43), *out));
        }
    }
}

/// The number of strips in which a slice of one volume is filled.
unsigned long countStrips(const ImagePtr& in, eAxis::domain axis)
{
    const auto slice = testing::makeInitialised<GetSlice3dImgLvl1>();
    unsigned long nbDone = 0;
    slice->setProgressObserver([&](const core::Progress& progress) { nbDone = std::max(nbDone, progress.done); });
    slice->set<attr::InImg3d>(in);
    slice->set<attr::InAxis>(axis);
    slice->set<attr::InSliceIndex>(0);
    EXPECT_TRUE(slice->run(core::eSynchroType::eSynchroSync));
    return nbDone - 1; // the volume is an element, too
}

TEST(GetSlice3dImgTest, aPixelAlongXWeighsACacheLine)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {64, 64, 256, 1, 1}));
    EXPECT_EQ(countStrips(in, eAxis::eX), 4UL) << "64 x 256 pixels, 4096 of them a strip";
    EXPECT_EQ(countStrips(in, eAxis::eY), 1UL);
    const ImagePtr narrow = makeRandom(*volumeOf(eImageBufferType::UInt8, {16, 64, 256, 1, 1}));
    EXPECT_EQ(countStrips(narrow, eAxis::eX), 1UL) << "rows of 16 bytes: 4 pixels share a cache line";
    const ImagePtr wide = makeRandom(*volumeOf(eImageBufferType::Real32, {64, 64, 256, 1, 1}));
    EXPECT_EQ(countStrips(wide, eAxis::eX), 4UL) << "as many lines of the volume as for bytes";
}

TEST(GetSlice3dImgTest, typesThatDifferByStep)
{
    image::TemporalGeometry temporal;
    temporal.initSequence(3);
    image::VolumeGeometry volume;
    volume.init3d(4);
    const image::BaseImageGeometry geometry(
        {eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::Int16}, 9, 5, volume, {}, temporal);
    const ImagePtr in = makeRandom(geometry);
    for (const eAxis::domain axis : g_axes) {
        const ImagePtr out = getSlice3dImg(in, axis, 3);
        EXPECT_TRUE(out->getGeometry().hasSameBufferTypes(geometry));
        EXPECT_EQ(out->getGeometry().getTemporalGeometry(), temporal);
        forEachSlicePixel(*in, *out, axis, 3, [](std::byte* made, const std::byte* from, unsigned long size) {
            EXPECT_EQ(std::memcmp(made, from, size), 0);
        });
    }
}

TEST(GetSlice3dImgTest, aMadeSliceHasTheCalibrationOfASlice)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    EXPECT_FALSE(getSlice3dImg(in, eAxis::eX, 1)->hasGeometricCalibration());
    const auto whole = boost::make_shared<image::GeometricCalibration>();
    whole->init3d("mm", 2, 3, 5, 10, 20, 30);
    in->setGeometricCalibration(whole);
    const auto expect = [&](eAxis::domain axis, float sizeX, float sizeY, float originX, float originY) {
        image::GeometricCalibration expected;
        expected.init2d("mm", sizeX, sizeY, originX, originY);
        const ImagePtr slice = getSlice3dImg(in, axis, 1);
        ASSERT_TRUE(slice->hasGeometricCalibration());
        EXPECT_EQ(*slice->getGeometricCalibration(), expected);
        const boost::shared_ptr<GetSlice3dImgLvl1> running = getSlice3dImg_async(in, axis, 1);
        ASSERT_TRUE(running->wait());
        EXPECT_EQ(*getAsyncProcessorOutput(running)->getGeometricCalibration(), expected);
    };
    expect(eAxis::eX, 3, 5, 20, 30);
    expect(eAxis::eY, 2, 5, 10, 30);
    expect(eAxis::eZ, 2, 3, 10, 20);
}

TEST(GetSlice3dImgTest, aGivenSliceKeepsItsCalibration)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    const ImagePtr out = createImage(*sliceOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}, eAxis::eY));
    const auto own = boost::make_shared<image::GeometricCalibration>();
    own->init2d("um", 1, 2, 3, 4);
    out->setGeometricCalibration(own);
    getSlice3dImg(in, eAxis::eY, 2, out);
    EXPECT_EQ(out->getGeometricCalibration(), own);
}

TEST(GetSlice3dImgTest, imagesWithoutPixels)
{
    for (unsigned long empty = 0; empty < 5; ++empty) {
        Sizes sizes = {4, 5, 6, 2, 2};
        sizes[empty] = 0;
        const ImagePtr in = createImage(*volumeOf(eImageBufferType::Int16, sizes));
        for (const eAxis::domain axis : g_axes) {
            SCOPED_TRACE(nameOf(*in, axis, 0));
            if (sizes[axis] == 0) {
                continue; // it has no slice
            }
            const ImagePtr out = getSlice3dImg(in, axis, 0);
            EXPECT_EQ(out->getGeometry().toString(), sliceOf(eImageBufferType::Int16, sizes, axis)->toString());
        }
    }
}

TEST(GetSlice3dImgTest, slicesOfAViewOfAVolume)
{
    const ImagePtr whole = makeRandom(*volumeOf(eImageBufferType::UInt16, {30, 20, 10, 3, 2}));
    ImageConstPtr view;
    ASSERT_TRUE(image::SubImageExtractor::extractVolume<const image::BaseImage>(2, 1, *whole, view));
    for (const eAxis::domain axis : g_axes) {
        EXPECT_TRUE(sameImages(*plainSlice(*view, axis, 7), *getSlice3dImg(view, axis, 7)));
    }
}

TEST(GetSlice3dImgTest, aPlanIsAVolumeOfOne)
{
    const ImagePtr plan = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 30, 20));
    for (const eAxis::domain axis : g_axes) {
        EXPECT_TRUE(sameImages(*plainSlice(*plan, axis, 0), *getSlice3dImg(plan, axis, 0)));
    }
}

TEST(GetSlice3dImgTest, whatDoesNotFitIsRefusedAndNothingWritten)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    const auto refused = [&](const image::BaseImageGeometry& geometry, eAxis::domain axis) {
        const ImagePtr out = makeRandom(geometry, 4);
        const ImagePtr before = testing::plainCopy(*out);
        const std::string text = messageOf([&] { getSlice3dImg(in, axis, 0, out); });
        EXPECT_TRUE(sameImages(*before, *out));
        return text;
    };
    EXPECT_EQ(refused(*image::geometry2d(eImageBufferType::UInt8, 5, 7), eAxis::eX),
              "OutImg2d is 5x7x1x1x1 UInt8, but needs 6 along y where it has 7: "
              "it has to be a slice along x of InImg3d, which is 4x5x6x1x1 UInt8");
    EXPECT_EQ(refused(*image::geometry2d(eImageBufferType::UInt8, 5, 4), eAxis::eZ),
              "OutImg2d is 5x4x1x1x1 UInt8, but needs 4 along x where it has 5, 5 along y where it has 4: "
              "it has to be a slice along z of InImg3d, which is 4x5x6x1x1 UInt8");
    EXPECT_EQ(refused(*volumeOf(eImageBufferType::UInt8, {4, 6, 1, 1, 1}), eAxis::eY),
              "OutImg2d is 4x6x1x1x1 UInt8, but needs a single plan where it has a volume of 1 along z: "
              "it has to be a slice along y of InImg3d, which is 4x5x6x1x1 UInt8");
    EXPECT_EQ(refused(*image::geometry2d(eImageBufferType::Int8, 4, 6), eAxis::eY),
              "OutImg2d is 4x6x1x1x1 Int8, InImg3d is 4x5x6x1x1 UInt8: element types have to be the same");
    for (const eAxis::domain axis : g_axes) {
        Sizes sizes = {4, 5, 6, 2, 1};
        EXPECT_NE(refused(*sliceOf(eImageBufferType::UInt8, sizes, axis), axis), "no exception") << "two channels";
        sizes = {4, 5, 6, 1, 2};
        EXPECT_NE(refused(*sliceOf(eImageBufferType::UInt8, sizes, axis), axis), "no exception") << "two time steps";
    }
}

TEST(GetSlice3dImgTest, nullImagesAndSlicesPastTheEndAlongZ)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    EXPECT_EQ(messageOf([] { static_cast<void>(getSlice3dImg(ImageConstPtr(), eAxis::eX, 0)); }),
              "GetSlice3dImgLvl1: attribute InImg3d holds a null pointer: give it an object that exists");
    EXPECT_EQ(messageOf([&] { getSlice3dImg(in, eAxis::eX, 0, ImagePtr()); }),
              "GetSlice3dImgLvl1: attribute OutImg2d holds a null pointer: give it an object that exists");
    for (const unsigned long index : {6UL, 7UL, ~0UL}) {
        const ImagePtr out = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 4, 5), 4);
        const ImagePtr before = testing::plainCopy(*out);
        EXPECT_NE(messageOf([&] { getSlice3dImg(in, eAxis::eZ, index, out); }), "no exception");
        EXPECT_TRUE(sameImages(*before, *out));
    }
}

TEST(GetSlice3dImgTest, aSliceTakenAgainIsNotTheFormerOne)
{
    const ImagePtr first = makeRandom(*volumeOf(eImageBufferType::UInt8, {40, 30, 20, 1, 1}), 1);
    const ImagePtr second = makeRandom(*volumeOf(eImageBufferType::UInt8, {40, 30, 20, 1, 1}), 2);
    const auto slice = testing::makeInitialised<GetSlice3dImgLvl1>();
    for (const ImagePtr& in : {first, second, first}) {
        for (const eAxis::domain axis : g_axes) {
            slice->clearOutputData();
            slice->set<attr::InImg3d>(in);
            slice->set<attr::InAxis>(axis);
            slice->set<attr::InSliceIndex>(11);
            ASSERT_TRUE(slice->run(core::eSynchroType::eSynchroSync));
            EXPECT_TRUE(sameImages(*plainSlice(*in, axis, 11), *slice->getStorage<attr::OutImg2d>()));
        }
    }
    slice->clearInputData();
    slice->clearIntermediateData();
    EXPECT_EQ(second.use_count(), 1) << "nothing of a run is kept";
}

TEST(GetSlice3dImgTest, asynchronousRunsGiveTheirOutput)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::Int32, {30, 20, 10, 2, 1}));
    for (const eAxis::domain axis : g_axes) {
        const boost::shared_ptr<GetSlice3dImgLvl1> made = getSlice3dImg_async(in, axis, 4);
        EXPECT_TRUE(made->wait());
        EXPECT_TRUE(sameImages(*plainSlice(*in, axis, 4), *getAsyncProcessorOutput(made)));
        const ImagePtr out = createImage(*sliceOf(eImageBufferType::Int32, {30, 20, 10, 2, 1}, axis));
        const boost::shared_ptr<GetSlice3dImgLvl1> given = getSlice3dImg_async(in, axis, 4, out);
        EXPECT_TRUE(given->wait());
        EXPECT_EQ(getAsyncProcessorOutput(given), out);
        EXPECT_TRUE(sameImages(*plainSlice(*in, axis, 4), *out));
    }
    const boost::shared_ptr<GetSlice3dImgLvl1> failed = getSlice3dImg_async(ImageConstPtr(), eAxis::eX, 0);
    EXPECT_EQ(failed->wait().getMessage(),
              "GetSlice3dImgLvl1: attribute InImg3d holds a null pointer: give it an object that exists");
    EXPECT_EQ(getAsyncProcessorOutput(failed), nullptr);
}

TEST(GetSlice3dImgTest, everySliceOfAnyVolumeIsItsPixels)
{
    rc::check([] {
        const Sizes sizes = {*rc::gen::inRange(1UL, 90UL), *rc::gen::inRange(1UL, 40UL), *rc::gen::inRange(1UL, 40UL),
                             *rc::gen::inRange(1UL, 3UL), *rc::gen::inRange(1UL, 3UL)};
        const eImageBufferType type = *rc::gen::elementOf(
            std::vector<eImageBufferType>(image::g_allBufferTypes.begin(), image::g_allBufferTypes.end()));
        const eAxis::domain axis = *rc::gen::element(eAxis::eX, eAxis::eY, eAxis::eZ);
        const unsigned long index = *rc::gen::inRange(0UL, sizes[axis]);
        const ImagePtr in = makeRandom(*volumeOf(type, sizes), index + 1);
        RC_ASSERT(static_cast<bool>(sameImages(*plainSlice(*in, axis, index), *getSlice3dImg(in, axis, index))));
    });
}

} // namespace
} // namespace orlix::imaproc::util
