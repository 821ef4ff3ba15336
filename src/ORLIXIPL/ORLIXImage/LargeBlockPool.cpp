// Mapping large blocks, and the list of those kept.
#include "ORLIXIPL/ORLIXImage/LargeBlockPool.h"

#include "ORLIXIPL/ORLIXImage/UsableMemory.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <type_traits>

#include <pthread.h>
#include <sys/mman.h>

namespace orlix::image {

namespace {

constexpr unsigned long g_hugePage = 2ul << 20;
constexpr unsigned long g_page = 4096;
constexpr unsigned long g_nbInRow =
    16; // blocks of 1 to 2 MiB, whose sizes are eighths of a MiB, so that they fill huge pages
constexpr unsigned long g_largestDefaultLimit = 4ul << 30;

std::byte* mapPages(unsigned long bytes) noexcept
{
    void* const pages = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return pages == MAP_FAILED ? nullptr : static_cast<std::byte*>(pages);
}

void unmapPages(std::byte* first, unsigned long bytes) noexcept
{
    if (bytes > 0) {
        munmap(first, bytes);
    }
}

// On a boundary of huge pages, so that all of the block but its end can lie in such.
std::byte* mapBlock(unsigned long capacity) noexcept
{
    std::byte* const pages = mapPages(capacity + g_hugePage - g_page);
    if (!pages) {
        return nullptr;
    }
    const auto address = reinterpret_cast<std::uintptr_t>(pages);
    const unsigned long before = (g_hugePage - address % g_hugePage) % g_hugePage;
    unmapPages(pages, before);
    unmapPages(pages + before + capacity, g_hugePage - g_page - before);
    if (capacity >= g_hugePage) {
        madvise(pages + before, capacity, MADV_HUGEPAGE); // a wish: a system without huge pages refuses it
    }
    return pages + before;
}

/// When the library is unloaded, what it keeps goes back to the system.
[[gnu::destructor]] void releaseKeptBlocks()
{
    largeBlockPool().releaseAll();
}

} // namespace

namespace {

const bool g_bHeldWhileForking =
    pthread_atfork([] { largeBlockPool().holdForFork(); }, [] { largeBlockPool().releaseAfterFork(); },
                   [] { largeBlockPool().releaseAfterFork(); }) == 0;

} // namespace

static_assert(std::is_trivially_destructible_v<LargeBlockPool>, "images may outlive every static object");

LargeBlockPool& largeBlockPool() noexcept
{
    constinit static LargeBlockPool pool;
    return pool;
}

unsigned long LargeBlockPool::capacityFor(unsigned long bytes)
{
    const unsigned long unit = std::max(g_page, std::bit_floor(bytes) / 8);
    return (bytes + unit - 1) / unit * unit;
}

std::byte* LargeBlockPool::take(unsigned long bytes) noexcept
{
    const unsigned long capacity = capacityFor(bytes);
    if (std::byte* const kept = takeKept(capacity)) {
        return kept;
    }
    if (capacity < g_hugePage) {
        if (std::byte* const first = takeFromNewRow(capacity)) {
            return first;
        }
    }
    if (std::byte* const fresh = mapBlock(capacity)) {
        return fresh;
    }
    return releaseAll() > 0 ? mapBlock(capacity) : nullptr;
}

std::byte* LargeBlockPool::takeKept(unsigned long capacity) noexcept
{
    const std::lock_guard lock(m_mutex);
    for (std::size_t i = m_count; i-- > 0;) {
        if (m_blocks[i].capacity == capacity) {
            std::byte* const first = m_blocks[i].first;
            std::move(m_blocks.begin() + i + 1, m_blocks.begin() + m_count, m_blocks.begin() + i);
            --m_count;
            m_keptBytes -= capacity;
            return first;
        }
    }
    return nullptr;
}

// A block smaller than a huge page gets one only together with its neighbours, which are kept meanwhile as the oldest.
// No page of theirs is there before somebody writes it. Null where they would not fit the limit, or can't be had.
std::byte* LargeBlockPool::takeFromNewRow(unsigned long capacity) noexcept
{
    static_assert(g_nbInRow * (1ul << 20) / 8 % g_hugePage == 0);
    constexpr unsigned long nbSpare = g_nbInRow - 1;
    const auto fits = [&] {
        return m_count + nbSpare <= m_blocks.size() && m_keptBytes + nbSpare * capacity <= limitLocked();
    };
    {
        const std::lock_guard lock(m_mutex);
        if (!fits()) {
            return nullptr;
        }
    }
    std::byte* const row = mapBlock(g_nbInRow * capacity);
    if (!row) {
        return nullptr;
    }
    {
        const std::lock_guard lock(m_mutex);
        if (fits()) {
            std::move_backward(m_blocks.begin(), m_blocks.begin() + m_count, m_blocks.begin() + m_count + nbSpare);
            for (unsigned long i = 0; i < nbSpare; ++i) {
                m_blocks[i] = {row + (nbSpare - i) * capacity, capacity}; // the first block's neighbour is taken next
            }
            m_count += nbSpare;
            m_keptBytes += nbSpare * capacity;
            return row;
        }
    }
    unmapPages(row + capacity, nbSpare * capacity);
    return row;
}

void LargeBlockPool::give(std::byte* block, unsigned long bytes) noexcept
{
    const unsigned long capacity = capacityFor(bytes);
    for (;;) {
        Block victim{block, capacity};
        {
            const std::lock_guard lock(m_mutex);
            const unsigned long limit = limitLocked();
            if (capacity <= limit) {
                if (m_keptBytes <= limit - capacity && m_count < m_blocks.size()) {
                    m_blocks[m_count++] = victim;
                    m_keptBytes += capacity;
                    return;
                }
                victim = removeOldest();
            }
        }
        unmapPages(victim.first, victim.capacity);
        if (victim.first == block) {
            return;
        }
    }
}

unsigned long LargeBlockPool::getLimit() noexcept
{
    const std::lock_guard lock(m_mutex);
    return limitLocked();
}

void LargeBlockPool::setLimit(unsigned long bytes) noexcept
{
    {
        const std::lock_guard lock(m_mutex);
        m_limit = bytes;
        m_bLimitKnown = true;
    }
    shrinkTo(bytes);
}

unsigned long LargeBlockPool::releaseAll() noexcept
{
    return shrinkTo(0);
}

// Unmapping a large block takes milliseconds, so it is done with the pool open to other threads.
unsigned long LargeBlockPool::shrinkTo(unsigned long bytes) noexcept
{
    unsigned long released = 0;
    for (;;) {
        Block victim;
        {
            const std::lock_guard lock(m_mutex);
            if (m_keptBytes <= bytes) {
                return released;
            }
            victim = removeOldest();
        }
        unmapPages(victim.first, victim.capacity);
        released += victim.capacity;
    }
}

// The caller holds the lock, and there is a block.
LargeBlockPool::Block LargeBlockPool::removeOldest() noexcept
{
    const Block oldest = m_blocks.front();
    std::move(m_blocks.begin() + 1, m_blocks.begin() + m_count, m_blocks.begin());
    --m_count;
    m_keptBytes -= oldest.capacity;
    return oldest;
}

// The caller holds the lock.
unsigned long LargeBlockPool::limitLocked() noexcept
{
    if (!m_bLimitKnown) {
        m_limit = std::min(getUsableMemoryBytes() / 8, g_largestDefaultLimit);
        m_bLimitKnown = true;
    }
    return m_limit;
}

} // namespace orlix::image
