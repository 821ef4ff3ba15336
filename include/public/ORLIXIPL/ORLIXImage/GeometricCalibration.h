// Where the pixels of an image lie in the physical world.
#pragma once

#include "ORLIXIPL/ORLIXImage/Export.h"

#include <string>

namespace orlix::image {

/// Pixel sizes and the position of the first pixel's corner, both in `getUnit()`, and the orientation of the axes as
/// rotation angles in radians. All in single precision. Immutable once given to an image.
class ORLIXIMAGE_API GeometricCalibration
{
public:
    void init2d(const std::string& unit, float pixelSizeX, float pixelSizeY, float originX, float originY,
                float rotationZ = 0);
    void init3d(const std::string& unit, float pixelSizeX, float pixelSizeY, float pixelSizeZ, float originX,
                float originY, float originZ, float rotationX = 0, float rotationY = 0, float rotationZ = 0);

    bool is3d() const { return m_b3d; }
    const std::string& getUnit() const { return m_unit; } ///< "px" where only pixels are known
    float getPixelSizeX() const { return m_pixelSize[0]; }
    float getPixelSizeY() const { return m_pixelSize[1]; }
    float getPixelSizeZ() const { return m_pixelSize[2]; } ///< 1 in 2d
    float getOriginX() const { return m_origin[0]; }
    float getOriginY() const { return m_origin[1]; }
    float getOriginZ() const { return m_origin[2]; } ///< 0 in 2d
    float getRotationX() const { return m_rotation[0]; }
    float getRotationY() const { return m_rotation[1]; }
    float getRotationZ() const { return m_rotation[2]; }
    friend bool operator==(const GeometricCalibration&, const GeometricCalibration&) = default;

private:
    bool m_b3d = false;
    std::string m_unit = "px";
    float m_pixelSize[3] = {1, 1, 1};
    float m_origin[3] = {0, 0, 0};
    float m_rotation[3] = {0, 0, 0};
};

} // namespace orlix::image
