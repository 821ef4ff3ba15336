// The exception of ORLIXImage.
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"

namespace orlix::image {

ORLIXImageException::~ORLIXImageException() = default;

} // namespace orlix::image
