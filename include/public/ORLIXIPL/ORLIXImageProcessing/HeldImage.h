// The image behind a weak reference to an attribute.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

#include <boost/weak_ptr.hpp>

namespace orlix::imaproc {

/// What the attribute holds; null where it holds nothing, or is gone. The processor that owns the attribute may go at
/// any time, so the attribute is held while it is read.
ORLIXIMAGEPROCESSING_API ImageConstPtr imageHeldBy(const boost::weak_ptr<const BaseImageAttribute>& attribute);

/// The image. Throws ORLIXImageProcessingException for a null pointer: there is no image from which another one's
/// properties could follow.
ORLIXIMAGEPROCESSING_API const image::BaseImage& requireImage(const ImageConstPtr& image);

} // namespace orlix::imaproc
