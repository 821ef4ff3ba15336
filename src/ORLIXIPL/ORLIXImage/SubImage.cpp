// Anchor of the view's type.
#include "ORLIXIPL/ORLIXImage/SubImage.h"

namespace orlix::image {

SubImage::~SubImage() = default;

} // namespace orlix::image
