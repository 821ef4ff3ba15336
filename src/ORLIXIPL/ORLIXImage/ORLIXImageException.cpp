// The exception of ORLIXImage and ORLIXBaseImageTools.
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"

namespace orlix::image {

ORLIXImageException::~ORLIXImageException() = default;

} // namespace orlix::image
