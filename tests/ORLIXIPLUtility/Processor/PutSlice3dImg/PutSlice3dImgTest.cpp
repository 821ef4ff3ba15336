// putSlice3dImg as a caller sees it.
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/GetSlice3dImg/SliceOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using testing::makeRandom;
using testing::messageOf;
using testing::plainCopy;
using testing::sameImages;

TEST(PutSlice3dImgTest, everyTypeAxisAndShape)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        for (const Sizes& sizes : g_volumes) {
            const ImagePtr in = makeRandom(*volumeOf(type, sizes), sizes[0]);
            const ImagePtr before = plainCopy(*in);
            for (const eAxis::domain axis : g_axes) {
                const ImagePtr slice = makeRandom(*sliceOf(type, sizes, axis), 12);
                const ImagePtr sliceBefore = plainCopy(*slice);
                for (const unsigned long index : someIndices(sizes, axis)) {
                    SCOPED_TRACE(nameOf(*in, axis, index));
                    const ImagePtr expected = plainVolumeWith(*in, *slice, axis, index);
                    const ImagePtr made = testing::makeOnSpoiltMemory(
                        in->getGeometry(), [&] { return putSlice3dImg(in, slice, axis, index); });
                    ASSERT_TRUE(sameImages(*expected, *made));
                    const ImagePtr given = makeRandom(in->getGeometry(), 77);
                    putSlice3dImg(in, slice, axis, index, given);
                    ASSERT_TRUE(sameImages(*expected, *given));
                    const ImagePtr inSitu = plainCopy(*in);
                    putSlice3dImg(inSitu, slice, axis, index, inSitu);
                    ASSERT_TRUE(sameImages(*expected, *inSitu));
                }
                EXPECT_TRUE(sameImages(*sliceBefore, *slice)) << "the slice is only read";
            }
            EXPECT_TRUE(sameImages(*before, *in)) << "the input is only read";
        }
    }
}

TEST(PutSlice3dImgTest, memoryOfOthers)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const Sizes& sizes : g_volumes) {
            for (const testing::WrapForm& form : g_wrapForms) {
                const testing::WatchedImage in(*volumeOf(type, sizes), form);
                const testing::WatchedImage out(*volumeOf(type, sizes), form);
                testing::fillRandom(*in.get(), 3);
                for (const eAxis::domain axis : g_axes) {
                    const testing::WatchedImage slice(*sliceOf(type, sizes, axis), form);
                    testing::fillRandom(*slice.get(), 4);
                    for (const unsigned long index : someIndices(sizes, axis)) {
                        SCOPED_TRACE(nameOf(*in.get(), axis, index));
                        const ImagePtr expected = plainVolumeWith(*in.get(), *slice.get(), axis, index);
                        putSlice3dImg(in.get(), slice.get(), axis, index, out.get());
                        ASSERT_TRUE(sameImages(*expected, *out.get()));
                        putSlice3dImg(in.get(), slice.get(), axis, index, in.get());
                        ASSERT_TRUE(sameImages(*expected, *in.get()));
                        ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact() && slice.isOutsideIntact());
                    }
                }
            }
        }
    }
}

TEST(PutSlice3dImgTest, manyStripsUnderEveryExecutor)
{
    const Sizes sizes = {70, 301, 111, 1, 2};
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, sizes));
    for (const testing::NamedExecutor& each : testing::makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const testing::ScopedExecutor scoped(each.executor);
        for (const eAxis::domain axis : g_axes) {
            const ImagePtr slice = makeRandom(*sliceOf(eImageBufferType::UInt8, sizes, axis), 5);
            const ImagePtr expected = plainVolumeWith(*in, *slice, axis, 43);
            EXPECT_TRUE(sameImages(*expected, *putSlice3dImg(in, slice, axis, 43)));
            const ImagePtr inSitu = plainCopy(*in);
            putSlice3dImg(inSitu, slice, axis, 43, inSitu);
            EXPECT_TRUE(sameImages(*expected, *inSitu));
        }
    }
}

boost::shared_ptr<PutSlice3dImgLvl1> preparePut(const ImageConstPtr& in, const ImageConstPtr& slice, eAxis::domain axis,
                                                unsigned long index, const ImagePtr& out)
{
    const auto put = testing::makeInitialised<PutSlice3dImgLvl1>();
    put->set<attr::InImg3d>(in);
    put->set<attr::InImg2d>(slice);
    put->set<attr::InAxis>(axis);
    put->set<attr::InSliceIndex>(index);
    put->set<attr::OutImg>(out);
    return put;
}

/// How many elements, of all levels, a run is made of.
unsigned long countElements(const boost::shared_ptr<PutSlice3dImgLvl1>& put)
{
    unsigned long nbDone = 0;
    put->setProgressObserver([&](const core::Progress& progress) { nbDone = std::max(nbDone, progress.done); });
    EXPECT_TRUE(put->run(core::eSynchroType::eSynchroSync));
    return nbDone;
}

TEST(PutSlice3dImgTest, ontoItselfTheVolumeIsNotCopied)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {64, 64, 256, 1, 1}));
    const ImagePtr along = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 64, 256), 2);
    EXPECT_EQ(countElements(preparePut(in, along, eAxis::eY, 3, in)), 2U) << "a volume in one strip";
    EXPECT_EQ(countElements(preparePut(in, along, eAxis::eX, 3, in)), 9U) << "a volume, 64 x 256 pixels, 2048 a strip";
    const ImagePtr out = createImage(in->getGeometry());
    EXPECT_GE(countElements(preparePut(in, along, eAxis::eY, 3, out)), 256U) << "every plan is copied";
}

TEST(PutSlice3dImgTest, aViewOfTheSamePixelsIsInSitu)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt16, {20, 30, 10, 1, 1}));
    ImagePtr view;
    ASSERT_TRUE(image::SubImageExtractor::extractVolume<image::BaseImage>(0, 0, *in, view));
    for (const eAxis::domain axis : g_axes) {
        const ImagePtr slice = makeRandom(*sliceOf(eImageBufferType::UInt16, sizesOf(*in), axis), 3);
        const ImagePtr expected = plainVolumeWith(*in, *slice, axis, 5);
        putSlice3dImg(in, slice, axis, 5, view);
        EXPECT_TRUE(sameImages(*expected, *in));
    }
}

TEST(PutSlice3dImgTest, aMadeVolumeIsADuplicate)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 2, 3}));
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 2, 3, 5, 10, 20, 30);
    in->setGeometricCalibration(calibration);
    const ImagePtr slice = makeRandom(*sliceOf(eImageBufferType::UInt8, sizesOf(*in), eAxis::eX), 3);
    const ImagePtr made = putSlice3dImg(in, slice, eAxis::eX, 1);
    EXPECT_EQ(*made->getGeometricCalibration(), *calibration);
    EXPECT_TRUE(made->getGeometry().getVolumeGeometry().is3d());
    EXPECT_TRUE(made->getGeometry().getTemporalGeometry().isSequence());
    EXPECT_FALSE(made->sharesPixelsWith(*in));
}

TEST(PutSlice3dImgTest, typesOfTheSameBytesAreTakenAsTheyAreAlongXAndY)
{
    const Sizes sizes = {6, 5, 4, 1, 1};
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt32, sizes));
    for (const eAxis::domain axis : {eAxis::eX, eAxis::eY}) {
        const ImagePtr slice = makeRandom(*sliceOf(eImageBufferType::Real32, sizes, axis), 3);
        EXPECT_TRUE(sameImages(*plainVolumeWith(*in, *slice, axis, 1), *putSlice3dImg(in, slice, axis, 1)));
    }
    const ImagePtr plan = makeRandom(*sliceOf(eImageBufferType::Real32, sizes, eAxis::eZ), 3);
    EXPECT_NE(messageOf([&] { static_cast<void>(putSlice3dImg(in, plan, eAxis::eZ, 1)); }), "no exception");
    const ImagePtr before = plainCopy(*in);
    EXPECT_NE(messageOf([&] { putSlice3dImg(in, plan, eAxis::eZ, 1, in); }), "no exception");
    EXPECT_TRUE(sameImages(*before, *in));
}

TEST(PutSlice3dImgTest, imagesWithoutPixels)
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
            const ImagePtr slice = createImage(*sliceOf(eImageBufferType::Int16, sizes, axis));
            EXPECT_EQ(putSlice3dImg(in, slice, axis, 0)->getGeometry().toString(), in->getGeometry().toString());
            putSlice3dImg(in, slice, axis, 0, in);
        }
    }
}

TEST(PutSlice3dImgTest, whatDoesNotFitIsRefusedAndNothingWritten)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    const auto refused = [&](const image::BaseImageGeometry& slice, const image::BaseImageGeometry& volume,
                             eAxis::domain axis) {
        const ImagePtr out = makeRandom(volume, 4);
        const ImagePtr before = plainCopy(*out);
        const std::string text = messageOf([&] { putSlice3dImg(in, makeRandom(slice), axis, 0, out); });
        EXPECT_TRUE(sameImages(*before, *out));
        return text;
    };
    EXPECT_EQ(refused(*image::geometry2d(eImageBufferType::UInt8, 5, 7), in->getGeometry(), eAxis::eX),
              "InImg2d is 5x7x1x1x1 UInt8, but needs 6 along y where it has 7: "
              "it has to be a slice along x of InImg3d, which is 4x5x6x1x1 UInt8");
    EXPECT_EQ(refused(*volumeOf(eImageBufferType::UInt8, {5, 6, 1, 1, 1}), in->getGeometry(), eAxis::eX),
              "InImg2d is 5x6x1x1x1 UInt8, but needs a single plan where it has a volume of 1 along z: "
              "it has to be a slice along x of InImg3d, which is 4x5x6x1x1 UInt8");
    EXPECT_EQ(refused(*image::geometry2d(eImageBufferType::UInt8, 5, 6),
                      *volumeOf(eImageBufferType::UInt8, {4, 5, 7, 1, 1}), eAxis::eX),
              "OutImg is 4x5x7x1x1 UInt8, InImg3d is 4x5x6x1x1 UInt8: sizes and element types have to be the same");
    EXPECT_EQ(refused(*image::geometry2d(eImageBufferType::UInt8, 5, 6),
                      *volumeOf(eImageBufferType::Int8, {4, 5, 6, 1, 1}), eAxis::eX),
              "OutImg is 4x5x6x1x1 Int8, InImg3d is 4x5x6x1x1 UInt8: sizes and element types have to be the same");
}

TEST(PutSlice3dImgTest, nullImages)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    const ImagePtr slice = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 5, 6));
    const auto text = [](const std::string& name) {
        return "PutSlice3dImgLvl1: attribute " + name + " holds a null pointer: give it an object that exists";
    };
    EXPECT_EQ(messageOf([&] { static_cast<void>(putSlice3dImg(ImageConstPtr(), slice, eAxis::eX, 0)); }),
              text("InImg3d"));
    EXPECT_EQ(messageOf([&] { static_cast<void>(putSlice3dImg(in, ImageConstPtr(), eAxis::eX, 0)); }), text("InImg2d"));
    EXPECT_EQ(messageOf([&] { putSlice3dImg(in, slice, eAxis::eX, 0, ImagePtr()); }), text("OutImg"));
}

TEST(PutSlice3dImgTest, aSlicePastTheEndAlongZIsRefused)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    const ImagePtr before = plainCopy(*in);
    const ImagePtr slice = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 4, 5));
    for (const unsigned long index : {6UL, 7UL, ~0UL}) {
        EXPECT_NE(messageOf([&] { putSlice3dImg(in, slice, eAxis::eZ, index, in); }), "no exception");
        EXPECT_TRUE(sameImages(*before, *in));
    }
}

TEST(PutSlice3dImgTest, asynchronousRunsGiveTheirOutput)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::Int32, {30, 20, 10, 2, 1}));
    for (const eAxis::domain axis : g_axes) {
        const ImagePtr slice = makeRandom(*sliceOf(eImageBufferType::Int32, sizesOf(*in), axis), 2);
        const ImagePtr expected = plainVolumeWith(*in, *slice, axis, 4);
        const boost::shared_ptr<PutSlice3dImgLvl1> made = putSlice3dImg_async(in, slice, axis, 4);
        EXPECT_TRUE(made->wait());
        EXPECT_TRUE(sameImages(*expected, *getAsyncProcessorOutput(made)));
        const ImagePtr out = createImage(in->getGeometry());
        const boost::shared_ptr<PutSlice3dImgLvl1> given = putSlice3dImg_async(in, slice, axis, 4, out);
        EXPECT_TRUE(given->wait());
        EXPECT_EQ(getAsyncProcessorOutput(given), out);
        EXPECT_TRUE(sameImages(*expected, *out));
    }
    const boost::shared_ptr<PutSlice3dImgLvl1> failed = putSlice3dImg_async(in, ImageConstPtr(), eAxis::eX, 0);
    EXPECT_EQ(failed->wait().getMessage(),
              "PutSlice3dImgLvl1: attribute InImg2d holds a null pointer: give it an object that exists");
    EXPECT_EQ(getAsyncProcessorOutput(failed), nullptr);
}

} // namespace
} // namespace orlix::imaproc::util
