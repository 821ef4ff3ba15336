// Which allocator serves which size of pixel memory.
#include "ORLIXIPL/ORLIXImage/PixelMemory.h"

#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/LargeBlockPool.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "ORLIXIPL/ORLIXImage/UsableMemory.h"

#include <cstdlib>

#include <oneapi/tbb/scalable_allocator.h>

namespace orlix::image {

namespace {

// Below, a block is served from memory that the allocator holds in larger pieces anyway.
constexpr unsigned long g_largeBlock = 1ul << 20;

struct GiveBack
{
    unsigned long bytes;

    void operator()(void* block) const noexcept { largeBlockPool().give(static_cast<std::byte*>(block), bytes); }
};

#ifdef ORLIX_PLAIN_ALLOCATION
constexpr bool g_bPooled = false;
#else
constexpr bool g_bPooled = true;
#endif

boost::shared_ptr<void> owned(void* block, void (*release)(void*))
{
    return block ? boost::shared_ptr<void>(block, release) : nullptr;
}

} // namespace

boost::shared_ptr<void> allocatePixels(unsigned long bytes)
{
    if constexpr (!g_bPooled) {
        void* block = nullptr;
        const bool bMade = bytes <= getAllMemoryBytes() && posix_memalign(&block, g_planAlignment, bytes) == 0;
        return owned(bMade ? block : nullptr, &std::free);
    }
    if (bytes < g_largeBlock) {
        return owned(scalable_aligned_malloc(bytes, g_planAlignment), &scalable_aligned_free);
    }
    std::byte* const block = bytes <= getAllMemoryBytes() ? largeBlockPool().take(bytes) : nullptr;
    return block ? boost::shared_ptr<void>(block, GiveBack{bytes}) : nullptr;
}

unsigned long releasePooledMemory()
{
    if constexpr (g_bPooled) {
        scalable_allocation_command(TBBMALLOC_CLEAN_ALL_BUFFERS, nullptr);
    }
    return largeBlockPool().releaseAll();
}

unsigned long getPooledMemoryLimit()
{
    return g_bPooled ? largeBlockPool().getLimit() : 0;
}

void setPooledMemoryLimit(unsigned long bytes)
{
    largeBlockPool().setLimit(bytes);
}

} // namespace orlix::image
