// Where the image of a region lies in the physical world.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

/// Gives `roi`, the image of a region of `image`, the calibration by which a position measured in it is the one in
/// `image`: the same pixel sizes and unit, and the origin of the region, which is float(offset) * pixel size + origin
/// in single precision. Where `image` has none, pixel size 1 and unit "px". Rotations are 0, whatever those of `image`.
/// In 2d the calibration is one of a plan, also for volumes.
ORLIXIPLUTILITY_API void calibrateROI2d(const image::BaseImage& image, const attr::Img2dOffset& offset,
                                        image::BaseImage& roi);
ORLIXIPLUTILITY_API void calibrateROI3d(const image::BaseImage& image, const attr::Img3dOffset& offset,
                                        image::BaseImage& roi);

} // namespace orlix::imaproc::util
