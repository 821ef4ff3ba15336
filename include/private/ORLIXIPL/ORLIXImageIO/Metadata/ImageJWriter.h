// ImageJ's description of an image that is written.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"

#include <optional>
#include <string>

namespace orlix::image::io {

/// Pages stand c fastest, then z, then t; a page has `samples` channels. Reads all pixels of types with more than 8
/// bits: their smallest and largest value are what ImageJ shows as black and white. Int16 is told as the line from
/// -32768 on that ImageJ draws through unsigned values.
std::string imageJDescriptionOf(const BaseImage& image, unsigned long samples);

/// The resolution tags that go with it: pixels per unit of the calibration, named where TIFF has a name for the unit.
/// Nothing where pixel sizes along x and y are not told.
std::optional<Resolution> imageJResolutionOf(const CalibrationPtr& calibration);

} // namespace orlix::image::io
