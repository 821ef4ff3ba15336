// Memory for the pixels of new images.
#pragma once

#include <boost/shared_ptr.hpp>

namespace orlix::image {

/// A block of `bytes` on a 64-byte boundary, undefined, given back with the last copy of the pointer; null where it
/// cannot be had. May be called from any thread.
boost::shared_ptr<void> allocatePixels(unsigned long bytes);

} // namespace orlix::image
