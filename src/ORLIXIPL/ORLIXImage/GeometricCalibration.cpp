// Setting a calibration in two or three dimensions.
#include "ORLIXIPL/ORLIXImage/GeometricCalibration.h"

namespace orlix::image {

void GeometricCalibration::init2d(const std::string& unit, float pixelSizeX, float pixelSizeY, float originX,
                                  float originY, float rotationZ)
{
    init3d(unit, pixelSizeX, pixelSizeY, 1, originX, originY, 0, 0, 0, rotationZ);
    m_b3d = false;
}

void GeometricCalibration::init3d(const std::string& unit, float pixelSizeX, float pixelSizeY, float pixelSizeZ,
                                  float originX, float originY, float originZ, float rotationX, float rotationY,
                                  float rotationZ)
{
    m_b3d = true;
    m_unit = unit;
    m_pixelSize[0] = pixelSizeX, m_pixelSize[1] = pixelSizeY, m_pixelSize[2] = pixelSizeZ;
    m_origin[0] = originX, m_origin[1] = originY, m_origin[2] = originZ;
    m_rotation[0] = rotationX, m_rotation[1] = rotationY, m_rotation[2] = rotationZ;
}

} // namespace orlix::image
