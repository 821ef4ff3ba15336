// Calibrations from pixel sizes and resolutions.
#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"

#include "ORLIXIPL/ORLIXImageIO/Metadata/LengthUnit.h"

#include <boost/make_shared.hpp>

#include <cmath>

namespace orlix::image::io {

namespace {

bool isScreenResolution(const std::string& unit, double perUnit)
{
    const double perInch = perUnit / metresIn(unit).value_or(1) * 0.0254;
    return std::abs(perInch - 72) < 0.02 || std::abs(perInch - 96) < 0.02;
}

} // namespace

bool isPixelSize(double size)
{
    const auto single = static_cast<float>(size);
    return std::isfinite(single) && single > 0;
}

CalibrationPtr calibrationOf(const std::string& unit, float sizeX, float sizeY, std::optional<float> sizeZ)
{
    if (!isPixelSize(sizeX) || !isPixelSize(sizeY) || !isPixelSize(sizeZ.value_or(1))) {
        return nullptr;
    }
    auto calibration = boost::make_shared<GeometricCalibration>();
    if (sizeZ) {
        calibration->init3d(unit, sizeX, sizeY, *sizeZ, 0, 0, 0);
    } else {
        calibration->init2d(unit, sizeX, sizeY, 0, 0);
    }
    return calibration;
}

UnitFactors unitFactors(const std::string& unitX, const std::string& unitY, const std::string& unitZ)
{
    UnitFactors factors = {unitFactor(unitY, unitX), unitFactor(unitZ, unitX), ""};
    factors.ignored = factors.y ? "" : "y in " + unitY;
    if (!factors.z) {
        factors.ignored += (factors.ignored.empty() ? "z in " : ", z in ") + unitZ;
    }
    return factors;
}

CalibrationPtr calibrationOf(const Resolution& resolution)
{
    const auto& [perUnitX, perUnitY, unit] = resolution;
    if (unit.empty() || !(perUnitX > 0) || !(perUnitY > 0) ||
        (isScreenResolution(unit, perUnitX) && isScreenResolution(unit, perUnitY))) {
        return nullptr;
    }
    return calibrationOf(unit, static_cast<float>(1 / perUnitX), static_cast<float>(1 / perUnitY), std::nullopt);
}

} // namespace orlix::image::io
