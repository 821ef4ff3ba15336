#include "ORLIXIPL/ORLIXIPLUtility/Processor/ROICalibration.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

namespace {

using image::GeometricCalibration;

float shifted(unsigned long offset, float pixelSize, float origin)
{
    return static_cast<float>(offset) * pixelSize + origin;
}

/// That of an image which has none: pixels of size 1.
const GeometricCalibration& calibrationOf(const image::BaseImage& image)
{
    static const GeometricCalibration g_none;
    return image.hasGeometricCalibration() ? *image.getGeometricCalibration() : g_none;
}

/// An image that is used again for the same region keeps the calibration that it has.
void calibrate(image::BaseImage& roi, const GeometricCalibration& calibration)
{
    if (!roi.hasGeometricCalibration() || *roi.getGeometricCalibration() != calibration) {
        roi.setGeometricCalibration(boost::make_shared<const GeometricCalibration>(calibration));
    }
}

} // namespace

void calibrateROI2d(const image::BaseImage& image, const attr::Img2dOffset& offset, image::BaseImage& roi)
{
    const GeometricCalibration& from = calibrationOf(image);
    GeometricCalibration calibration;
    calibration.init2d(from.getUnit(), from.getPixelSizeX(), from.getPixelSizeY(),
                       shifted(offset.X, from.getPixelSizeX(), from.getOriginX()),
                       shifted(offset.Y, from.getPixelSizeY(), from.getOriginY()));
    calibrate(roi, calibration);
}

void calibrateROI3d(const image::BaseImage& image, const attr::Img3dOffset& offset, image::BaseImage& roi)
{
    const GeometricCalibration& from = calibrationOf(image);
    GeometricCalibration calibration;
    calibration.init3d(from.getUnit(), from.getPixelSizeX(), from.getPixelSizeY(), from.getPixelSizeZ(),
                       shifted(offset.X, from.getPixelSizeX(), from.getOriginX()),
                       shifted(offset.Y, from.getPixelSizeY(), from.getOriginY()),
                       shifted(offset.Z, from.getPixelSizeZ(), from.getOriginZ()));
    calibrate(roi, calibration);
}

} // namespace orlix::imaproc::util
