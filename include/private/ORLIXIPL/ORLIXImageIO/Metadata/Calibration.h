// Calibrations from pixel sizes that a file tells.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageMetadata.h"

#include <optional>

namespace orlix::image::io {

/// True for a finite size above 0 that is one in single precision too.
bool isPixelSize(double size);

/// A calibration at origin 0 without rotation, in 3d where `sizeZ` is given. Null where a size is not a pixel size.
CalibrationPtr calibrationOf(const std::string& unit, float sizeX, float sizeY, std::optional<float> sizeZ);

/// How the sizes along y and z become sizes in the unit of x. Where the unit of y doesn't convert, there is no
/// calibration; where that of z doesn't, there is one in 2d.
struct UnitFactors
{
    std::optional<double> y, z; ///< nothing where the unit doesn't convert
    std::string ignored;        ///< the axes of which that is so: "y in sec, z in nm"
};

UnitFactors unitFactors(const std::string& unitX, const std::string& unitY, const std::string& unitZ);

/// Pixels per unit, as the resolution tags of TIFF and the pHYs chunk of PNG have them.
struct Resolution
{
    double perUnitX = 0; ///< 0 where the file tells none
    double perUnitY = 0;
    std::string unit; ///< empty where only the ratio of the two means something
};

/// Null without a unit, where a value is not above 0, and for the 72 and 96 pixels per inch that programs write where
/// nothing was measured.
CalibrationPtr calibrationOf(const Resolution& resolution);

} // namespace orlix::image::io
