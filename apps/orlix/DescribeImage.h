// What verbs print about an image: axes, type and calibration.
#pragma once

#include "JsonWriter.h"

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <string>

namespace orlix::cli {

/// "x 256, y 256, z 109, c 1, t 1"
std::string describeAxes(const image::BaseImageGeometry& geometry);
/// "0.9 x 0.9 x 1.5 mm per pixel, origin 0, 0, 0 mm"; "none" for null.
std::string describeCalibration(const boost::shared_ptr<const image::GeometricCalibration>& calibration);

/// Members "size", "type" and "calibration" (null where there is none) of the object that is being written.
void writeImageMembers(JsonWriter& json, const image::BaseImageGeometry& geometry,
                       const boost::shared_ptr<const image::GeometricCalibration>& calibration);

} // namespace orlix::cli
