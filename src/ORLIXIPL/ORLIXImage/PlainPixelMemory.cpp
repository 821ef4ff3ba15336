// Pixel memory straight from the C library, for tools that watch every block's borders.
#ifdef ORLIX_PLAIN_ALLOCATION

#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/PixelMemory.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "ORLIXIPL/ORLIXImage/UsableMemory.h"

#include <cstdlib>

namespace orlix::image {

boost::shared_ptr<void> allocatePixels(unsigned long bytes)
{
    // Sanitizers end the program at a request that they find absurd.
    if (bytes > getAllMemoryBytes()) {
        return nullptr;
    }
    void* block = nullptr;
    if (posix_memalign(&block, g_planAlignment, bytes) != 0) {
        return nullptr;
    }
    return {block, &std::free};
}

unsigned long releasePooledMemory()
{
    return 0;
}

unsigned long getPooledMemoryLimit()
{
    return 0;
}

void setPooledMemoryLimit(unsigned long) {}

} // namespace orlix::image

#endif
