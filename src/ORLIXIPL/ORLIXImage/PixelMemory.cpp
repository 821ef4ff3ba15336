// Pixel memory: which allocator serves which size.
#ifndef ORLIX_PLAIN_ALLOCATION

#include "ORLIXIPL/ORLIXImage/PixelMemory.h"

#include "ORLIXIPL/ORLIXImage/DenseLayout.h"
#include "ORLIXIPL/ORLIXImage/LargeBlockPool.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "ORLIXIPL/ORLIXImage/UsableMemory.h"

#include <oneapi/tbb/scalable_allocator.h>

#include <atomic>
#include <cstdlib>

#include <pthread.h>
#include <sys/single_threaded.h>

namespace orlix::image {

namespace {

// Below, oneTBB's allocator serves a block from memory that it holds anyway, without a lock up to 8 KiB.
constexpr unsigned long g_largeBlock = 1ul << 20;

// From here on images begin at different lines of a page, since a cache has few places for lines that all lie at the
// same one, and since loads that look like a store just before them are held back: oneTBB's allocator puts each block
// of this size one line behind the one before, which costs a copy between them a quarter.
constexpr unsigned long g_staggered = 64ul << 10;
constexpr unsigned long g_page = 4096;
constexpr unsigned long g_stagger = g_page / 8;
constexpr unsigned long g_largestStagger = g_page - g_stagger;

/// The first pixel's distance from the page at `page` where a block begins: always the same, so that a block that is
/// used again has the same lines in the caches.
unsigned long staggerOf(const void* page)
{
    // Blocks often lie at equal distances, of which a single product would make as regular a sequence.
    unsigned long mixed = reinterpret_cast<unsigned long>(page) / g_page * 0x9E3779B97F4A7C15ul;
    mixed = (mixed ^ mixed >> 32) * 0xD6E8FEB86659FD93ul;
    return (mixed >> 61) * g_stagger;
}

// oneTBB's allocator has locks that another thread may hold while the process forks, and that nobody then lets go of in
// the child. There the C library serves small blocks, whose locks are free, and those of the parent stay where they
// are.
std::atomic<bool> g_bCutOff{false};
bool g_bOneThread = true; // of the parent at its last fork
const bool g_bForksNoticed = pthread_atfork([] { g_bOneThread = __libc_single_threaded != 0; }, nullptr,
                                            [] {
                                                if (!g_bOneThread) {
                                                    g_bCutOff.store(true, std::memory_order_relaxed);
                                                }
                                            }) == 0;

// Puts the record of a small block's owners before its pixels, so that both are one allocation.
template <class T>
struct RecordBeforePixels
{
    using value_type = T;

    RecordBeforePixels(void* allocation, bool bPlain) : m_allocation(allocation), m_bPlain(bPlain) {}
    template <class TOther>
    RecordBeforePixels(const RecordBeforePixels<TOther>& other)
        : m_allocation(other.m_allocation), m_bPlain(other.m_bPlain)
    {}

    T* allocate(std::size_t) const noexcept
    {
        static_assert(sizeof(T) <= g_planAlignment);
        return static_cast<T*>(m_allocation);
    }
    void deallocate(T*, std::size_t) const noexcept
    {
        if (m_bPlain) {
            std::free(m_allocation);
        } else if (!g_bCutOff.load(std::memory_order_relaxed)) {
            scalable_aligned_free(m_allocation);
        }
    }

    void* m_allocation;
    bool m_bPlain; ///< from the C library
};

struct NothingToRelease
{
    void operator()(void*) const noexcept {}
};

struct GiveBack
{
    std::byte* block;
    unsigned long bytes;

    void operator()(void*) const noexcept { largeBlockPool().give(block, bytes); }
};

boost::shared_ptr<void> allocateSmall(unsigned long bytes)
{
    const bool bPlain = g_bCutOff.load(std::memory_order_relaxed);
    const bool bStaggered = bytes >= g_staggered;
    const unsigned long alignment = bStaggered ? g_page : g_planAlignment;
    const unsigned long before = bStaggered ? g_stagger : g_planAlignment; // has room for the record
    const unsigned long needed = before + (bStaggered ? g_largestStagger : 0) + bytes;
    const unsigned long whole = (needed + alignment - 1) / alignment * alignment;
    void* const allocation = bPlain ? std::aligned_alloc(alignment, whole) : scalable_aligned_malloc(needed, alignment);
    if (!allocation) {
        return nullptr;
    }
    std::byte* const first = static_cast<std::byte*>(allocation) + before;
    void* const pixels = first + (bStaggered ? staggerOf(allocation) : 0);
    return {pixels, NothingToRelease(), RecordBeforePixels<void*>(allocation, bPlain)};
}

boost::shared_ptr<void> allocateLarge(unsigned long bytes)
{
    const unsigned long needed = bytes + g_largestStagger;
    std::byte* const block = bytes <= getAllMemoryBytes() ? largeBlockPool().take(needed) : nullptr;
    return block ? boost::shared_ptr<void>(block + staggerOf(block), GiveBack{block, needed}) : nullptr;
}

} // namespace

boost::shared_ptr<void> allocatePixels(unsigned long bytes)
{
    return bytes < g_largeBlock ? allocateSmall(bytes) : allocateLarge(bytes);
}

unsigned long releasePooledMemory()
{
    if (!g_bCutOff.load(std::memory_order_relaxed)) {
        scalable_free(scalable_malloc(1)); // cleaning an allocator that was never used reads what it has not set up
        scalable_allocation_command(TBBMALLOC_CLEAN_ALL_BUFFERS, nullptr);
    }
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
