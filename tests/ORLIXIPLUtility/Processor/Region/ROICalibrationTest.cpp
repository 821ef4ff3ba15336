// A position measured in the image of a region is the one in the image that the region was taken from.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "support/Images.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using image::GeometricCalibration;
using testing::makeRandom;

boost::shared_ptr<GeometricCalibration> calibration3d()
{
    const auto made = boost::make_shared<GeometricCalibration>();
    made->init3d("um", 0.1F, 0.3F, 0.7F, 1.1F, -2.3F, 1e6F, 0.25F, 0.5F, 0.75F);
    return made;
}

TEST(ROICalibration, IsComputedInSinglePrecision)
{
    const ImagePtr in = makeRandom(*image::geometry3d(eImageBufferType::UInt8, 40, 30, 20));
    in->setGeometricCalibration(calibration3d());
    const GeometricCalibration found = *getROI3dImg(in, 13, 17, 3, 5, 5, 5)->getGeometricCalibration();
    const volatile float x = 13.0F * 0.1F; // each step is rounded
    const volatile float y = 17.0F * 0.3F;
    const volatile float z = 3.0F * 0.7F;
    GeometricCalibration expected;
    expected.init3d("um", 0.1F, 0.3F, 0.7F, x + 1.1F, y + -2.3F, z + 1e6F);
    EXPECT_EQ(found, expected) << "rotations are 0, whatever the input's";

    const GeometricCalibration flat = *getROI2dImg(in, 13, 17, 5, 5)->getGeometricCalibration();
    expected.init2d("um", 0.1F, 0.3F, x + 1.1F, y + -2.3F);
    EXPECT_EQ(flat, expected) << "that of a plan, also for a volume";
}

TEST(ROICalibration, CountsPixelsWhereTheInputHasNone)
{
    const ImagePtr in = makeRandom(*image::geometry3d(eImageBufferType::UInt8, 40, 30, 20));
    GeometricCalibration expected;
    expected.init3d("px", 1, 1, 1, 13, 17, 3);
    EXPECT_EQ(*getROI3dImg(in, 13, 17, 3, 5, 5, 5)->getGeometricCalibration(), expected);
    expected.init2d("px", 1, 1, 13, 17);
    EXPECT_EQ(*getROI2dImg(in, 13, 17, 5, 5)->getGeometricCalibration(), expected);
    EXPECT_FALSE(in->hasGeometricCalibration());
}

TEST(ROICalibration, IsGivenToOutputsOfTheCallersToo)
{
    // One plan, which is done at once, and several.
    for (const unsigned long sizeZ : {1UL, 3UL}) {
        const ImagePtr in = makeRandom(*image::geometry5d(eImageBufferType::UInt8, 40, 30, sizeZ, 1, 1));
        in->setGeometricCalibration(calibration3d());
        const ImagePtr out = makeRandom(*image::geometry5d(eImageBufferType::UInt8, 5, 6, sizeZ, 1, 1));
        out->setGeometricCalibration(calibration3d());
        GeometricCalibration expected;
        expected.init2d("um", 0.1F, 0.3F, 1.1F, -2.3F);
        for (int i = 0; i < 2; ++i) {
            getROI2dImg(in, 0, 0, 5, 6, out);
            EXPECT_EQ(*out->getGeometricCalibration(), expected);
        }
        const auto kept = out->getGeometricCalibration();
        putROI2dImg(in, getROI2dImg(in, 0, 0, 3, 3), 1, 1);
        EXPECT_EQ(*in->getGeometricCalibration(), *calibration3d()) << "what is put in changes nothing";
        putROI2dImg(out, getROI2dImg(out, 0, 0, 2, 2), 1, 1, getROI2dImg(out, 0, 0, 5, 6));
        EXPECT_EQ(out->getGeometricCalibration(), kept);
    }
}

TEST(ROICalibration, TakesOffsetsOf64Bits)
{
    const ImagePtr in = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 4, 4));
    const ImagePtr roi = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 1, 1));
    for (const auto& [offset, expected] :
         {std::pair{~0UL, 18446744073709551616.0F}, std::pair{1UL << 63, 9223372036854775808.0F},
          std::pair{(1UL << 63) + (1UL << 39), 9223372036854775808.0F},
          std::pair{(1UL << 63) + (1UL << 39) + 1, 9223373136366403584.0F}, std::pair{16777217UL, 16777216.0F}}) {
        calibrateROI2d(*in, *attr::createImg2dOffset(offset, 0), *roi);
        EXPECT_EQ(roi->getGeometricCalibration()->getOriginX(), expected) << offset;
    }
}

TEST(ROICalibration, CutsAddUp)
{
    const ImagePtr in = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 100, 100));
    const auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init2d("mm", 0.5F, 0.25F, 10, 20);
    in->setGeometricCalibration(calibration);
    const ImagePtr twice = getROI2dImg(getROI2dImg(in, 10, 20, 50, 50), 3, 4, 10, 10);
    EXPECT_EQ(*twice->getGeometricCalibration(), *getROI2dImg(in, 13, 24, 10, 10)->getGeometricCalibration());
}

} // namespace
} // namespace orlix::imaproc::util
