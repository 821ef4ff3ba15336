// Pixel memory: which allocator serves which size.
#ifndef ORLIX_PLAIN_ALLOCATION

#include "ORLIXIPL/ORLIXImage/PixelMemory.h"

#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/LargeBlockPool.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "ORLIXIPL/ORLIXImage/UsableMemory.h"

#include <oneapi/tbb/scalable_allocator.h>

namespace orlix::image {

namespace {

// Below, oneTBB's allocator serves a block from memory that it holds anyway, without a lock up to 8 KiB.
constexpr unsigned long g_largeBlock = 1ul << 20;

// Puts the record of a small block's owners on the boundary before its pixels, so that both are one allocation.
template <class T>
struct RecordBeforePixels
{
    using value_type = T;

    explicit RecordBeforePixels(void* allocation) : m_allocation(allocation) {}
    template <class TOther>
    RecordBeforePixels(const RecordBeforePixels<TOther>& other) : m_allocation(other.m_allocation)
    {}

    T* allocate(std::size_t) const noexcept
    {
        static_assert(sizeof(T) <= g_planAlignment);
        return static_cast<T*>(m_allocation);
    }
    void deallocate(T*, std::size_t) const noexcept { scalable_aligned_free(m_allocation); }

    void* m_allocation;
};

struct NothingToRelease
{
    void operator()(void*) const noexcept {}
};

struct GiveBack
{
    unsigned long bytes;

    void operator()(void* block) const noexcept { largeBlockPool().give(static_cast<std::byte*>(block), bytes); }
};

boost::shared_ptr<void> allocateSmall(unsigned long bytes)
{
    void* const allocation = scalable_aligned_malloc(g_planAlignment + bytes, g_planAlignment);
    if (!allocation) {
        return nullptr;
    }
    void* const pixels = static_cast<std::byte*>(allocation) + g_planAlignment;
    return {pixels, NothingToRelease(), RecordBeforePixels<void*>(allocation)};
}

boost::shared_ptr<void> allocateLarge(unsigned long bytes)
{
    std::byte* const block = bytes <= getAllMemoryBytes() ? largeBlockPool().take(bytes) : nullptr;
    return block ? boost::shared_ptr<void>(block, GiveBack{bytes}) : nullptr;
}

} // namespace

boost::shared_ptr<void> allocatePixels(unsigned long bytes)
{
    return bytes < g_largeBlock ? allocateSmall(bytes) : allocateLarge(bytes);
}

unsigned long releasePooledMemory()
{
    scalable_free(scalable_malloc(1)); // cleaning an allocator that was never used reads what it has not set up
    scalable_allocation_command(TBBMALLOC_CLEAN_ALL_BUFFERS, nullptr);
    return largeBlockPool().releaseAll();
}

unsigned long getPooledMemoryLimit()
{
    return largeBlockPool().getLimit();
}

void setPooledMemoryLimit(unsigned long bytes)
{
    largeBlockPool().setLimit(bytes);
}

} // namespace orlix::image

#endif
