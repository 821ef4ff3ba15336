// What operators ask of a given image before they build into it.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

/// The image, whose sizes say how large a thing is to be built. Throws ORLIXIPLUtilityException for a null pointer.
const image::BaseImage& accessImageToBuild(const ImagePtr& outImg);

} // namespace orlix::imaproc::util
