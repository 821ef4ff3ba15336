// Memory for the pixels of new images, from the C library.
#include "ORLIXIPL/ORLIXImage/PixelMemory.h"

#include <cstdlib>

namespace orlix::image {

boost::shared_ptr<void> allocatePixels(unsigned long bytes)
{
    void* block = nullptr;
    if (posix_memalign(&block, 64, bytes) != 0) {
        return nullptr;
    }
    return {block, &std::free};
}

} // namespace orlix::image
