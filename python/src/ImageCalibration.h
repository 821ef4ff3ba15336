// Sizes of pixels, origins and units, as Python gives and gets them.
#pragma once

#include "PyImage.h"

namespace orlix::python {

/// Pixel sizes along (y, x), or (z, y, x) where there is a Z among the axes; None without a calibration.
nb::object pixelSizeOf(const image::GeometricCalibration* calibration, const std::string& axes);
nb::object pixelSizeOf(const PyImage& image);
nb::object originOf(const PyImage& image); ///< as the pixel size
nb::object unitOf(const PyImage& image);   ///< None without a calibration

/// Gives the image a calibration, unless `pixelSize` is None. ValueError for a wrong number of numbers.
void calibrate(PyImage& image, nb::handle pixelSize, nb::handle unit, nb::handle origin);

} // namespace orlix::python
