// What a slice looks like, and which slices a volume has.
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceGeometry.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

ImagePtr makeVolume(const eImageBufferType& type, unsigned long x, unsigned long y, unsigned long z)
{
    return image::createImage(*image::geometry3d(type, x, y, z));
}

TEST(SliceGeometryTest, sizesOfSlices)
{
    const ImagePtr volume = makeVolume(eImageBufferType::UInt8, 4, 5, 6);
    const auto expect = [&](eAxis::domain axis, unsigned long x, unsigned long y, unsigned long nbSlices) {
        EXPECT_EQ(sliceSizeX(*volume, axis), x);
        EXPECT_EQ(sliceSizeY(*volume, axis), y);
        EXPECT_EQ(countSlices(*volume, axis), nbSlices);
    };
    expect(eAxis::eX, 5, 6, 4);
    expect(eAxis::eY, 4, 6, 5);
    expect(eAxis::eZ, 4, 5, 6);
}

TEST(SliceGeometryTest, bytesThatAPixelMoves)
{
    const auto bytes = [](const eImageBufferType& type, unsigned long x, eAxis::domain axis) {
        return bytesPerSliceByte(*makeVolume(type, x, 2, 2), axis);
    };
    EXPECT_EQ(bytes(eImageBufferType::UInt8, 1000, eAxis::eX), 64U);
    EXPECT_EQ(bytes(eImageBufferType::Int16, 1000, eAxis::eX), 32U);
    EXPECT_EQ(bytes(eImageBufferType::Real32, 1000, eAxis::eX), 16U);
    EXPECT_EQ(bytes(eImageBufferType::UInt8, 10, eAxis::eX), 10U) << "rows share cache lines";
    EXPECT_EQ(bytes(eImageBufferType::UInt8, 0, eAxis::eX), 1U);
    EXPECT_EQ(bytes(eImageBufferType::UInt8, 1000, eAxis::eY), 1U);
    EXPECT_EQ(bytes(eImageBufferType::UInt8, 1000, eAxis::eZ), 1U);
}

TEST(SliceGeometryTest, rotationsAboutTheAxisOfTheSliceStay)
{
    const ImagePtr volume = makeVolume(eImageBufferType::UInt8, 4, 5, 6);
    const auto whole = boost::make_shared<image::GeometricCalibration>();
    whole->init3d("um", 2, 3, 5, 10, 20, 30, 0.25F, 0.5F, 0.75F);
    volume->setGeometricCalibration(whole);
    const auto expect = [&](eAxis::domain axis, float sizeX, float sizeY, float originX, float originY, float angle) {
        image::GeometricCalibration expected;
        expected.init2d("um", sizeX, sizeY, originX, originY, angle);
        EXPECT_EQ(*sliceCalibration(*volume, axis), expected);
    };
    expect(eAxis::eX, 3, 5, 20, 30, 0.25F);
    expect(eAxis::eY, 2, 5, 10, 30, -0.5F);
    expect(eAxis::eZ, 2, 3, 10, 20, 0.75F);
}

TEST(SliceGeometryTest, aCalibrationIn2dTellsNothingAlongZ)
{
    const ImagePtr volume = makeVolume(eImageBufferType::UInt8, 4, 5, 6);
    EXPECT_EQ(sliceCalibration(*volume, eAxis::eZ), nullptr);
    const auto flat = boost::make_shared<image::GeometricCalibration>();
    flat->init2d("um", 2, 3, 10, 20, 0.5F);
    volume->setGeometricCalibration(flat);
    EXPECT_EQ(sliceCalibration(*volume, eAxis::eX), nullptr);
    EXPECT_EQ(sliceCalibration(*volume, eAxis::eY), nullptr);
    EXPECT_EQ(*sliceCalibration(*volume, eAxis::eZ), *flat);
}

TEST(SliceGeometryTest, slicesThatAVolumeHas)
{
    const ImagePtr volume = makeVolume(eImageBufferType::UInt8, 4, 5, 6);
    EXPECT_TRUE(hasSlice(*volume, eAxis::eX, 3));
    EXPECT_TRUE(hasSlice(*volume, eAxis::eY, 4));
    EXPECT_TRUE(hasSlice(*volume, eAxis::eZ, 5));
    EXPECT_EQ(hasSlice(*volume, eAxis::eX, 4).getMessage(),
              "There is no slice 4 along x: the volume is 4x5x6x1x1 UInt8, so choose one of the first 4 from 0");
    EXPECT_FALSE(hasSlice(*volume, eAxis::eY, 5));
    EXPECT_FALSE(hasSlice(*volume, eAxis::eZ, ~0UL));
    EXPECT_FALSE(hasSlice(*makeVolume(eImageBufferType::UInt8, 4, 0, 6), eAxis::eY, 0));
}

TEST(SliceGeometryTest, slicesThatAVolumeTakes)
{
    const ImagePtr volume = makeVolume(eImageBufferType::UInt8, 4, 5, 6);
    const ImagePtr same = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 4, 5));
    const ImagePtr wider = image::createImage(*image::geometry2d(eImageBufferType::Int16, 4, 5));
    EXPECT_TRUE(takesSlice(*volume, *same, eAxis::eZ, 5));
    EXPECT_EQ(takesSlice(*volume, *same, eAxis::eZ, 6).getMessage(), hasSlice(*volume, eAxis::eZ, 6).getMessage());
    EXPECT_EQ(takesSlice(*volume, *wider, eAxis::eZ, 5).getMessage(),
              "The slice is 4x5x1x1x1 Int16, the volume 4x5x6x1x1 UInt8: give a slice of the volume's element type, or "
              "convert it first");
}

} // namespace
} // namespace orlix::imaproc::util
