// Home of the exception's type record.
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIOException.h"

namespace orlix::image::io {

ORLIXImageIOException::~ORLIXImageIOException() = default;

} // namespace orlix::image::io
