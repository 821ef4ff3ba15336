// OME-XML of an image that is written.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <string>

namespace orlix::image::io {

/// Pages stand z fastest, then c, then t; a page has `samples` channels.
std::string omeXmlOf(const BaseImage& image, unsigned long samples, bool bBigEndian);

} // namespace orlix::image::io
