// Sizes of pixels, origins and units, as Python gives and gets them.
#include "ImageCalibration.h"

#include "Arguments.h"

#include <nanobind/stl/string.h>

#include <boost/make_shared.hpp>

namespace orlix::python {

using image::GeometricCalibration;

namespace {

/// Numbers of a calibration in the order of the array's axes.
nb::object alongAxes(const std::string& axes, float x, float y, float z)
{
    return axes.find('Z') == std::string::npos ? nb::make_tuple(y, x) : nb::make_tuple(z, y, x);
}

std::vector<float> floatsAlongAxes(nb::handle values, std::size_t nbWanted, const char* name)
{
    std::vector<float> floats = floatsOf(values, name);
    if (floats.size() != nbWanted) {
        const std::string text = std::string(name) + " has " + std::to_string(floats.size()) + " numbers, " +
                                 std::to_string(nbWanted) + " are needed: " + (nbWanted == 3 ? "z, y, x" : "y, x");
        throw nb::value_error(text.c_str());
    }
    return floats;
}

} // namespace

nb::object pixelSizeOf(const GeometricCalibration* calibration, const std::string& axes)
{
    if (calibration == nullptr) {
        return nb::none();
    }
    return alongAxes(axes, calibration->getPixelSizeX(), calibration->getPixelSizeY(), calibration->getPixelSizeZ());
}

nb::object pixelSizeOf(const PyImage& self)
{
    return pixelSizeOf(self.image->getGeometricCalibration().get(), self.axes);
}

nb::object originOf(const PyImage& self)
{
    const auto& calibration = self.image->getGeometricCalibration();
    if (!calibration) {
        return nb::none();
    }
    return alongAxes(self.axes, calibration->getOriginX(), calibration->getOriginY(), calibration->getOriginZ());
}

nb::object unitOf(const PyImage& self)
{
    const auto& calibration = self.image->getGeometricCalibration();
    return calibration ? nb::object(nb::str(calibration->getUnit().c_str())) : nb::none();
}

void calibrate(PyImage& self, nb::handle pixelSize, nb::handle unit, nb::handle origin)
{
    if (pixelSize.is_none()) {
        return;
    }
    const std::size_t nbAxes = self.axes.find('Z') == std::string::npos ? 2 : 3;
    const std::vector<float> size = floatsAlongAxes(pixelSize, nbAxes, "pixel_size");
    const std::vector<float> first =
        origin.is_none() ? std::vector<float>(nbAxes, 0.F) : floatsAlongAxes(origin, nbAxes, "origin");
    const std::string name = unit.is_none() ? "px" : textOf(unit, "unit");
    const auto calibration = boost::make_shared<GeometricCalibration>();
    if (nbAxes == 2) {
        calibration->init2d(name, size[1], size[0], first[1], first[0]);
    } else {
        calibration->init3d(name, size[2], size[1], size[0], first[2], first[1], first[0]);
    }
    self.image->setGeometricCalibration(calibration);
}

} // namespace orlix::python
