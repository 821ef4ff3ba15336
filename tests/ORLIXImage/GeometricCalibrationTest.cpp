// Calibrations in two and three dimensions, and on images.
#include "ORLIXIPL/ORLIXImage/GeometricCalibration.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace orlix::image {
namespace {

TEST(GeometricCalibration, StartsInPixels)
{
    const GeometricCalibration calibration;
    EXPECT_FALSE(calibration.is3d());
    EXPECT_EQ(calibration.getUnit(), "px");
    EXPECT_EQ(calibration.getPixelSizeX(), 1);
    EXPECT_EQ(calibration.getPixelSizeZ(), 1);
    EXPECT_EQ(calibration.getOriginX(), 0);
    EXPECT_EQ(calibration.getRotationZ(), 0);
}

TEST(GeometricCalibration, Keeps3dAndForgetsItIn2d)
{
    GeometricCalibration calibration;
    calibration.init3d("um", 0.5f, 0.25f, 2, 10, 20, 30, 0.1f, 0.2f, 0.3f);
    EXPECT_TRUE(calibration.is3d());
    EXPECT_EQ(calibration.getUnit(), "um");
    EXPECT_EQ(calibration.getPixelSizeX(), 0.5f);
    EXPECT_EQ(calibration.getPixelSizeY(), 0.25f);
    EXPECT_EQ(calibration.getPixelSizeZ(), 2);
    EXPECT_EQ(calibration.getOriginX(), 10);
    EXPECT_EQ(calibration.getOriginY(), 20);
    EXPECT_EQ(calibration.getOriginZ(), 30);
    EXPECT_EQ(calibration.getRotationX(), 0.1f);
    EXPECT_EQ(calibration.getRotationY(), 0.2f);
    EXPECT_EQ(calibration.getRotationZ(), 0.3f);

    calibration.init2d("mm", 3, 4, 5, 6, 0.5f);
    EXPECT_FALSE(calibration.is3d());
    EXPECT_EQ(calibration.getUnit(), "mm");
    EXPECT_EQ(calibration.getPixelSizeX(), 3);
    EXPECT_EQ(calibration.getPixelSizeY(), 4);
    EXPECT_EQ(calibration.getPixelSizeZ(), 1);
    EXPECT_EQ(calibration.getOriginX(), 5);
    EXPECT_EQ(calibration.getOriginY(), 6);
    EXPECT_EQ(calibration.getOriginZ(), 0);
    EXPECT_EQ(calibration.getRotationX(), 0);
    EXPECT_EQ(calibration.getRotationZ(), 0.5f);
}

TEST(GeometricCalibration, EqualMeansAllOfIt)
{
    GeometricCalibration a, b;
    a.init2d("mm", 3, 4, 5, 6);
    b.init3d("mm", 3, 4, 1, 5, 6, 0);
    EXPECT_FALSE(a == b);
    b.init2d("mm", 3, 4, 5, 6);
    EXPECT_TRUE(a == b);
}

TEST(GeometricCalibration, OfAnImageIsSharedByItsViews)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt8, 5, 4, 3));
    EXPECT_FALSE(image->hasGeometricCalibration());
    EXPECT_EQ(image->getGeometricCalibration(), nullptr);

    const auto calibration = boost::make_shared<const GeometricCalibration>();
    image->setGeometricCalibration(calibration);
    EXPECT_TRUE(image->hasGeometricCalibration());
    const SubImage plan(*image, planGeometry(*image, 0), 1, 0, 0);
    EXPECT_EQ(plan.getGeometricCalibration(), calibration);

    image->setGeometricCalibration(nullptr);
    EXPECT_FALSE(image->hasGeometricCalibration());
    EXPECT_TRUE(plan.hasGeometricCalibration());
}

} // namespace
} // namespace orlix::image
